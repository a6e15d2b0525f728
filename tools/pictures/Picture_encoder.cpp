#include "tools/pictures/Picture_encoder.h"

#include "tools/terminal/Colour_reduction.h"

namespace VT {

namespace {

// Whether the image is indexed on the VT palette, as vtpool writes pictures: then its indexes are
// the picture's colours as they are. Nearest colours could not tell apart the colours the
// palette holds twice (the standard colours reappear in the colour cube). Entries made fully
// transparent stand for the transparency colour.
bool on_vt_palette(const QImage& image)
{
    if (image.format() != QImage::Format_Indexed8)
        return false;
    const QVector<QRgb> table = image.colorTable();
    const QVector<unsigned int>& vt = Colours::get_standard_vt_colour_table();
    if (table.size() != vt.size())
        return false;
    for (int i = 0; i < table.size(); ++i)
        if (table[i] != vt[i] && qAlpha(table[i]) != 0)
            return false;
    return true;
}

}

int Picture_encoder::row_bytes(int width, format_t format)
{
    switch (format) {
    case MONOCHROME: return (width + 7) / 8;
    case FOUR_BIT_COLOUR: return (width + 1) / 2;
    default: return width;
    }
}

QByteArray Picture_encoder::pack(const QByteArray& indices, int width, int height, format_t format)
{
    const int stride = row_bytes(width, format);
    QByteArray out(stride * height, '\0');
    uint8_t* data = reinterpret_cast<uint8_t*>(out.data());
    const uint8_t* in = reinterpret_cast<const uint8_t*>(indices.constData());
    for (int y = 0; y < height; ++y) {
        uint8_t* row = data + y * stride;
        const uint8_t* pixels = in + size_t(y) * size_t(width);
        for (int x = 0; x < width; ++x) {
            switch (format) {
            case MONOCHROME:
                if (pixels[x] & 1)
                    row[x / 8] |= uint8_t(0x80 >> (x % 8));
                break;
            case FOUR_BIT_COLOUR:
                row[x / 2] |= uint8_t(x % 2 ? pixels[x] & 15 : (pixels[x] & 15) << 4);
                break;
            default:
                row[x] = pixels[x];
                break;
            }
        }
    }
    return out;
}

QByteArray Picture_encoder::pack_rows(const QImage& given, format_t format, unsigned char transparency_index)
{
    const bool indexed = on_vt_palette(given);
    const QImage image = indexed ? given : given.convertToFormat(QImage::Format_ARGB32);
    const int w = image.width(), h = image.height();
    const int colours = format == MONOCHROME ? 2 : format == FOUR_BIT_COLOUR ? 16 : 256;
    // The library's reading of true-colour pixels as VT colours (-1: a transparent pixel).
    QT_image vt_image(indexed ? QImage() : image);
    const QVector<QRgb> table = image.colorTable();
    QByteArray indices(w * h, '\0');
    uint8_t* out = reinterpret_cast<uint8_t*>(indices.data());
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            int index = indexed ? image.pixelIndex(x, y) : vt_image.get_vt_pixel(x, y, -1);
            if (indexed && qAlpha(table[index]) == 0)
                index = -1;
            uint8_t& pixel = out[y * w + x];
            if (index < 0)
                pixel = reduce_colour(transparency_index, colours);
            else if (colours == 256)
                pixel = uint8_t(index);
            else if (indexed)
                pixel = reduce_colour(uint8_t(index), colours);
            else
                pixel = reduced_index(image.pixel(x, y), colours);
        }
    return pack(indices, w, h, format);
}

QByteArray Picture_encoder::run_length_code(const QByteArray& raw, int row_bytes)
{
    QByteArray out;
    const int n = raw.size();
    for (int i = 0; i < n;) {
        int row_end = row_bytes > 0 ? (i / row_bytes + 1) * row_bytes : n;
        char value = raw[i];
        int count = 1;
        while (i + count < row_end && i + count < n && count < 255 && raw[i + count] == value)
            ++count;
        out.append(char(count));
        out.append(value);
        i += count;
    }
    return out;
}

QByteArray Picture_encoder::run_length_code(const QByteArray& raw, int width, format_t format)
{
    // A row ends inside a repetition of a packed byte only for 1- and 4-bit pixels: there runs
    // stay within their row.
    return run_length_code(raw, format == EIGHT_BIT_COLOUR ? 0 : row_bytes(width, format));
}

QByteArray Picture_encoder::encode(const QImage& image, format_t format, bool run_length, unsigned char transparency_index)
{
    QByteArray raw = pack_rows(image, format, transparency_index);
    return run_length ? run_length_code(raw, image.width(), format) : raw;
}

}
