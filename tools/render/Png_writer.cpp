#include "tools/render/Png_writer.h"

#include <QHash>
#include <vector>

#include "tools/output/Output_file.h"

namespace VT {
namespace Render {

namespace {

uint32_t crc32(const char* data, size_t n, uint32_t crc = 0)
{
    static const std::vector<uint32_t> table = [] {
        std::vector<uint32_t> t(256);
        for (uint32_t i = 0; i < 256; ++i) {
            uint32_t c = i;
            for (int k = 0; k < 8; ++k)
                c = c & 1 ? 0xEDB88320u ^ (c >> 1) : c >> 1;
            t[i] = c;
        }
        return t;
    }();
    crc = ~crc;
    for (size_t i = 0; i < n; ++i)
        crc = table[(crc ^ uint8_t(data[i])) & 0xFF] ^ (crc >> 8);
    return ~crc;
}

void put32(QByteArray& out, uint32_t v)
{
    out.append(char(v >> 24)).append(char(v >> 16)).append(char(v >> 8)).append(char(v));
}

void chunk(QByteArray& out, const char* type, const QByteArray& data)
{
    put32(out, uint32_t(data.size()));
    const int start = out.size();
    out.append(type, 4).append(data);
    put32(out, crc32(out.constData() + start, size_t(out.size() - start)));
}

}

QByteArray encode_png(const Canvas& canvas, int scale)
{
    scale = std::max(1, scale);
    const int w = canvas.width() * scale, h = canvas.height() * scale;

    // A palette, in the order the colours first appear, when there are few enough colours.
    QHash<uint32_t, int> palette;
    std::vector<uint32_t> colours;
    for (int y = 0; y < canvas.height() && canvas.width() > 0 && colours.size() <= 256; ++y) {
        const uint32_t* row = canvas.row(y);
        uint32_t last = ~row[0];
        for (int x = 0; x < canvas.width(); ++x) {
            if (row[x] == last)
                continue;
            last = row[x];
            if (!palette.contains(last)) {
                palette.insert(last, int(colours.size()));
                colours.push_back(last);
                if (colours.size() > 256)
                    break;
            }
        }
    }
    const bool indexed = colours.size() <= 256;
    const int bytes_per_pixel = indexed ? 1 : 3;

    QByteArray raw;
    raw.reserve((w * bytes_per_pixel + 1) * h);
    QByteArray line;
    for (int y = 0; y < canvas.height(); ++y) {
        line.clear();
        line.append(char(0)); // filter: none
        const uint32_t* row = canvas.row(y);
        for (int x = 0; x < canvas.width(); ++x) {
            for (int k = 0; k < scale; ++k) {
                if (indexed) {
                    line.append(char(palette.value(row[x])));
                } else {
                    line.append(char(row[x] >> 16)).append(char(row[x] >> 8)).append(char(row[x]));
                }
            }
        }
        for (int k = 0; k < scale; ++k)
            raw.append(line);
    }

    QByteArray out("\x89PNG\r\n\x1a\n", 8);
    QByteArray header;
    put32(header, uint32_t(w));
    put32(header, uint32_t(h));
    header.append(char(8)).append(char(indexed ? 3 : 2)).append(char(0)).append(char(0)).append(char(0));
    chunk(out, "IHDR", header);
    if (indexed) {
        QByteArray plte;
        for (uint32_t c : colours)
            plte.append(char(c >> 16)).append(char(c >> 8)).append(char(c));
        chunk(out, "PLTE", plte);
    }
    // qCompress puts the length in front of the zlib stream; the stream itself is what IDAT holds.
    chunk(out, "IDAT", qCompress(raw, 6).mid(4));
    chunk(out, "IEND", QByteArray());
    return out;
}

bool write_png(const Canvas& canvas, const QString& path, int scale, QString* error)
{
    return Output_file::write_file(path, encode_png(canvas, scale), error);
}

}
}
