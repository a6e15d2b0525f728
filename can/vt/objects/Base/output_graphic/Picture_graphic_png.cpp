#include "can/vt/objects/Base/output_graphic/Picture_graphic_obj.h"

#include <QFile>
#include <climits>
#include <cstring>
#include <new>

#include "can/vt/objects/Base/output_graphic/Picture_pixels.h"

// The picture sent as a PNG object, to terminals that take those, from the PNG resource its
// object id is mapped to.

namespace VT::Base {

using Picture_pixels::clamp_int;

QList<Picture_graphic_obj::png_range_t>& Picture_graphic_obj::png_ranges()
{
    static QList<png_range_t> ranges;
    return ranges;
}

void Picture_graphic_obj::add_png_range(unsigned short first, unsigned short end, const char* name)
{
    png_ranges().append(png_range_t{first, end, QByteArray(name)});
}

QString Picture_graphic_obj::png_filename() const
{
    const uint16_t oid = __get_id();
    for (const png_range_t& range : png_ranges())
        if (range.first <= oid && oid < range.end)
            return QString(":vt_graph_%1_%2.png")
                .arg(QString::fromLatin1(range.name), QString::number(oid - range.first, 16));
    return QString();
}

void Picture_graphic_obj::load_png()
{
    const QString path = png_filename();
    if (path.isNull())
        return;
    QFile file(path);
    if (!file.exists() || file.size() < 1 || file.size() > INT_MAX - 15 || !file.open(QIODevice::ReadOnly))
        return;
    const qint64 size = file.size();
    unsigned char* block = new (std::nothrow) unsigned char[size_t(size)]();
    if (!block)
        return;
    file.seek(0);
    const qint64 got = file.read(reinterpret_cast<char*>(block), size);
    if (got < 1) {
        delete[] block;
        return;
    }
    if (png_owned)
        delete[] png_buf;
    png_buf = block;
    png_size = uint32_t(got);
    png_owned = 1;
}

void Picture_graphic_obj::set_png_buf(unsigned char* buf, unsigned size)
{
    // A block loaded earlier is ours to free; the caller's buffer never is.
    if (png_owned && png_buf != buf) {
        delete[] png_buf;
        png_owned = 0;
    }
    png_buf = buf;
    png_size = size;
}

bool Picture_graphic_obj::png_capable() const
{
    return pool_helper && pool_helper->negotiated_version() >= 6 && pool_helper->obj_type_supported(TYPE_PNG);
}

int Picture_graphic_obj::serialise_png(int offset, unsigned char* buf, int len)
{
    if (!png_capable())
        return -1;
    if (!png_buf || png_size == 0)
        load_png();
    if (!png_buf || png_size == 0)
        return -1;
    const uint16_t oid = __get_id();
    const uint16_t w = width.get(), aw = actual_width.get(), ah = actual_height.get();
    const uint32_t n = png_size;
    // The byte form of a PNG object (format 0, no macros) holding the file.
    const uint8_t head[15] = {uint8_t(oid), uint8_t(oid >> 8), uint8_t(TYPE_PNG), uint8_t(w),       uint8_t(w >> 8),
                              uint8_t(aw),  uint8_t(aw >> 8),  uint8_t(ah),       uint8_t(ah >> 8), 0,
                              uint8_t(n),   uint8_t(n >> 8),   uint8_t(n >> 16),  uint8_t(n >> 24), 0};
    const int64_t total = 15 + int64_t(n);
    if (!buf || len < 1 || offset < 0 || offset >= total)
        return 0;
    int written = 0;
    while (written < len && offset + written < total) {
        const int64_t at = int64_t(offset) + written;
        if (at < 15) {
            buf[written++] = head[at];
            continue;
        }
        const int64_t k = std::min<int64_t>(len - written, total - at);
        memcpy(buf + written, png_buf + (at - 15), size_t(k));
        written += int(k);
    }
    return written;
}

int Picture_graphic_obj::__num_bytes() const
{
    if (png_capable()) {
        if (png_buf && png_size)
            return clamp_int(int64_t(png_size) + 15);
        const QString path = png_filename();
        if (!path.isNull()) {
            QFile file(path);
            if (file.exists() && file.size() >= 1)
                return clamp_int(file.size() + 15);
        }
    }
    return VT_obj::__num_bytes();
}

int Picture_graphic_obj::__serialise(int offset, uint8_t* buf, int len)
{
    int r = serialise_png(offset, buf, len);
    if (r >= 0)
        return r;
    return VT_obj::__serialise(offset, buf, len);
}

}
