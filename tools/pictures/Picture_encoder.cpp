#include "tools/pictures/Picture_encoder.h"

namespace VT {

namespace {

bool is_light(const QImage& image, int x, int y)
{
    QRgb p = image.pixel(x, y);
    return qGray(p) >= 128;
}

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

QByteArray Picture_encoder::pack_rows(const QImage& given, format_t format, unsigned char transparency_index)
{
    const bool indexed = on_vt_palette(given);
    const QImage image = indexed ? given : given.convertToFormat(QImage::Format_ARGB32);
    const int w = image.width(), h = image.height();
    const int stride = row_bytes(w, format);
    // The library's reading of true-colour pixels as VT colours (-1: a transparent pixel).
    QT_image vt_image(indexed ? QImage() : image);
    const QVector<QRgb> table = image.colorTable();
    QByteArray out(stride * h, '\0');
    uint8_t* data = reinterpret_cast<uint8_t*>(out.data());
    for (int y = 0; y < h; ++y) {
        uint8_t* row = data + y * stride;
        for (int x = 0; x < w; ++x) {
            int index = indexed ? image.pixelIndex(x, y) : vt_image.get_vt_pixel(x, y, -1);
            if (indexed && qAlpha(table[index]) == 0)
                index = -1;
            bool transparent = index < 0;
            switch (format) {
            case MONOCHROME: {
                int bit = transparent ? (transparency_index & 1) : (is_light(image, x, y) ? 1 : 0);
                if (bit)
                    row[x / 8] |= uint8_t(0x80 >> (x % 8));
                break;
            }
            case FOUR_BIT_COLOUR: {
                int nibble = transparent ? (transparency_index & 15)
                                         : Attribute_colour::remap_colour(uint8_t(index), FOUR_BIT_COLOUR) & 15;
                row[x / 2] |= uint8_t(x % 2 ? nibble : nibble << 4);
                break;
            }
            default:
                row[x] = transparent ? transparency_index : uint8_t(index);
                break;
            }
        }
    }
    return out;
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

QByteArray Picture_encoder::encode(const QImage& image, format_t format, bool run_length, unsigned char transparency_index)
{
    QByteArray raw = pack_rows(image, format, transparency_index);
    if (!run_length)
        return raw;
    // A row ends inside a repetition of a packed byte only for 1- and 4-bit pixels: there runs
    // stay within their row.
    return run_length_code(raw, format == EIGHT_BIT_COLOUR ? 0 : row_bytes(image.width(), format));
}

}
