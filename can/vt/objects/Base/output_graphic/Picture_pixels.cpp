#include "can/vt/objects/Base/output_graphic/Picture_pixels.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstring>

#include "can/vt/objects/Attribute_colour.h"

namespace VT::Base::Picture_pixels {

namespace {

typedef std::array<uint8_t, 256> Colour_table;

// Attribute_colour::remap_colour of every palette index for one colour depth, so that the
// pixel loops remap through a table.
const Colour_table& remap_table(format_t mode)
{
    static const std::array<Colour_table, 4> tables = [] {
        std::array<Colour_table, 4> t;
        for (int m = 0; m < 4; ++m)
            for (int c = 0; c < 256; ++c)
                t[size_t(m)][size_t(c)] = Attribute_colour::remap_colour(uint8_t(c), format_t(m));
        return t;
    }();
    return tables[std::min(unsigned(mode), 3u)];
}

// Walks stored runs (count, index pairs) over the `total` pixels of a picture W wide whose rows
// are padded to an even width: a row of odd width ends in a copy of its last pixel. Hands each
// stretch to `visit(remapped index, count)` and counts it into `*pos`; a false from `visit` stops
// the walk, and the walk then returns false.
template <class Visit>
bool walk_runs(const uint8_t* raw, size_t n, uint32_t W, size_t total, const Colour_table& remap, size_t* pos,
               Visit visit)
{
    uint32_t col = 0;
    for (size_t i = 0; i + 1 < n && *pos < total; i += 2) {
        const uint8_t v = remap[raw[i + 1]];
        if (W % 2 == 0) {
            const size_t m = std::min<size_t>(raw[i], total - *pos);
            if (!visit(v, m))
                return false;
            *pos += m;
            continue;
        }
        for (uint32_t count = raw[i]; count && *pos < total;) {
            const uint32_t k = std::min(count, W - col);
            // The run, and the copy that closes its row when it reaches the row's end.
            const bool row_end = col + k == W;
            if (!visit(v, k + (row_end ? 1 : 0)))
                return false;
            *pos += k + (row_end ? 1 : 0);
            col = row_end ? 0 : col + k;
            count -= k;
        }
    }
    return true;
}

// The eight pixels of a monochrome byte, most significant bit first.
const uint8_t (&mono_pixels())[256][8]
{
    static uint8_t table[256][8];
    static const bool built = [] {
        for (int b = 0; b < 256; ++b)
            for (int i = 0; i < 8; ++i)
                table[b][i] = uint8_t((b >> (7 - i)) & 1);
        return true;
    }();
    (void)built;
    return table;
}

inline void fill(uint8_t* out, uint8_t value, size_t n)
{
    if (n <= 8) {
        // Short runs are the common case in drawn pictures: no call for them.
        for (size_t i = 0; i < n; ++i)
            out[i] = value;
        return;
    }
    memset(out, value, n);
}

// Row-aware writer of decoded pixels: p is the position in the padded buffer, c the column.
// A write stores only below `size`, the column always advances, and a row end skips the
// padding, so that every row starts at a multiple of the stride.
struct Pixel_writer
{
    uint8_t* out;
    size_t size;
    uint32_t width;
    size_t padding;
    size_t p = 0;
    uint32_t c = 0;

    // Accounts k pixels (k <= width - c); `put(dst, m)` stores the first m of them.
    template <class Put>
    inline void write(uint32_t k, Put put)
    {
        if (p < size) {
            size_t m = std::min<size_t>(k, size - p);
            put(out + p, m);
            p += m;
        }
        c += k;
        if (c == width) {
            c = 0;
            p += padding;
        }
    }
};

// The runs of decode_rle, through the row-aware writer.
bool unpack_runs(unsigned format, const uint8_t* raw, size_t n, Pixel_writer& w)
{
    if (format > EIGHT_BIT_COLOUR)
        return false;
    const uint8_t(&mono)[256][8] = mono_pixels();
    for (size_t i = 0; i + 1 < n && w.p < w.size; i += 2) {
        uint32_t count = raw[i];
        const uint8_t value = raw[i + 1];
        if (count == 0)
            continue;
        switch (format) {
        case EIGHT_BIT_COLOUR:
            while (count) {
                uint32_t k = std::min(count, w.width - w.c);
                w.write(k, [value](uint8_t* dst, size_t m) { fill(dst, value, m); });
                count -= k;
            }
            break;
        case FOUR_BIT_COLOUR: {
            const uint8_t high = uint8_t(value >> 4), low = uint8_t(value & 0x0F);
            for (; count; --count)
                w.write(std::min(2u, w.width - w.c), [high, low](uint8_t* dst, size_t m) {
                    dst[0] = high;
                    if (m > 1)
                        dst[1] = low;
                });
            break;
        }
        case MONOCHROME:
            for (; count; --count)
                w.write(std::min(8u, w.width - w.c),
                        [&mono, value](uint8_t* dst, size_t m) { memcpy(dst, mono[value], m); });
            break;
        }
    }
    return true;
}

// Turns a stream of 4-bit pixels, given as runs of one value, into 4-bit run records: runs
// of equal pixel pairs, at most 255 pairs each. Works run by run, so no picture-sized buffer
// is needed whatever size the picture claims.
class Pair_run_encoder
{
public:
    Pair_run_encoder(int& skip, uint8_t*& out, int& room) : skip(skip), out(out), room(room) {}

    // Adds `count` pixels of `value`; false once the output is full.
    bool add(uint8_t value, size_t count)
    {
        if (count == 0)
            return !full;
        if (pending >= 0) {
            add_pairs(uint8_t(pending), value, 1);
            pending = -1;
            --count;
        }
        if (count >= 2)
            add_pairs(value, value, count / 2);
        if (count & 1)
            pending = value;
        return !full;
    }
    // Emits the run in progress; the total of bytes emitted.
    int64_t finish()
    {
        flush();
        return total;
    }

private:
    void add_pairs(uint8_t a, uint8_t b, size_t n)
    {
        const unsigned key = unsigned(a) | unsigned(b) << 8;
        if (key != run_key || run_pairs == 0) {
            flush();
            run_key = key;
        }
        run_pairs += n;
    }
    // Emits the run in progress as records of 255 pairs and a shorter last one. Records that
    // are only counted or skipped are accounted for without walking them one by one, so a run
    // of any length costs no more than the bytes it actually writes.
    void flush()
    {
        const uint8_t packed = uint8_t((run_key & 0xFF) << 4 | (run_key >> 8));
        size_t whole = run_pairs / 255;
        const size_t part = run_pairs % 255;
        run_pairs = 0;
        if (full)
            return;
        if (!out) {
            total += int64_t(2) * int64_t(whole + (part ? 1 : 0));
            return;
        }
        const size_t skipped = std::min(whole, size_t(skip / 2));
        skip -= int(2 * skipped);
        whole -= skipped;
        for (; whole > 0 && !full; --whole)
            put(255, packed);
        if (part && !full)
            put(uint8_t(part), packed);
    }
    void put(uint8_t count, uint8_t packed)
    {
        total += emit_run(count, packed, skip, out, room);
        if (room == 0)
            full = true;
    }

    int& skip;
    uint8_t*& out;
    int& room;
    int pending = -1;
    unsigned run_key = 0;
    size_t run_pairs = 0;
    int64_t total = 0;
    bool full = false;
};

}

void decode_plain(unsigned format, const uint8_t* raw, size_t n, uint32_t W, uint32_t H, size_t stride, uint8_t* out)
{
    switch (format) {
    case EIGHT_BIT_COLOUR:
        for (uint32_t r = 0; r < H; ++r) {
            size_t from = size_t(r) * W;
            if (from >= n)
                break;
            memcpy(out + r * stride, raw + from, std::min<size_t>(W, n - from));
        }
        break;
    case FOUR_BIT_COLOUR: {
        size_t row_bytes = (size_t(W) + 1) / 2;
        for (uint32_t r = 0; r < H; ++r) {
            size_t from = r * row_bytes;
            if (from >= n)
                break;
            size_t avail = std::min(row_bytes, n - from);
            size_t whole = std::min<size_t>(avail, W / 2); // bytes with both nibbles inside the row
            const uint8_t* src = raw + from;
            uint8_t* dst = out + r * stride;
            for (size_t j = 0; j < whole; ++j) {
                dst[2 * j] = uint8_t(src[j] >> 4);
                dst[2 * j + 1] = uint8_t(src[j] & 0x0F);
            }
            if (avail > whole) // odd width: the low nibble of the row's last byte is dropped
                dst[2 * whole] = uint8_t(src[whole] >> 4);
        }
        break;
    }
    case MONOCHROME: {
        const uint8_t(&mono)[256][8] = mono_pixels();
        size_t row_bytes = (size_t(W) + 7) / 8;
        for (uint32_t r = 0; r < H; ++r) {
            size_t from = r * row_bytes;
            if (from >= n)
                break;
            size_t avail = std::min(row_bytes, n - from);
            size_t whole = std::min<size_t>(avail, W / 8);
            const uint8_t* src = raw + from;
            uint8_t* dst = out + r * stride;
            for (size_t j = 0; j < whole; ++j)
                memcpy(dst + 8 * j, mono[src[j]], 8);
            if (avail > whole) // the row ends inside this byte: its remaining bits are dropped
                memcpy(dst + 8 * whole, mono[src[whole]], W - 8 * whole);
        }
        break;
    }
    default:
        break;
    }
}

bool decode_rle(unsigned format, const uint8_t* raw, size_t n, uint32_t W, size_t stride, uint8_t* out, size_t size,
                size_t* reached)
{
    Pixel_writer writer{out, size, W, stride - W};
    const bool known = unpack_runs(format, raw, n, writer);
    *reached = writer.p;
    return known;
}

void expand_rle(const uint8_t* raw, size_t n, uint32_t W, uint32_t H, format_t mode, uint8_t* out)
{
    const size_t padded = (size_t(W) + 1) & ~size_t(1);
    const size_t total = padded * H;
    const Colour_table& remap = remap_table(mode);
    size_t pos = 0;
    walk_runs(raw, n, W, total, remap, &pos, [&](uint8_t v, size_t count) {
        fill(out + pos, v, count);
        return true;
    });
    // Pixels that no run reaches (the runs fall short of the picture).
    if (pos < total)
        memset(out + pos, remap[255], total - pos);
}

int reduce_plain_to_4_bit(const uint8_t* raw, size_t n, uint32_t W, uint32_t H, int offset, uint8_t* out, int len)
{
    const size_t row_bytes = (size_t(W) + 1) / 2;
    const int64_t total = int64_t(row_bytes) * H;
    if (!out)
        return clamp_int(total);
    if (len < 1 || offset < 0 || offset >= total)
        return 0;
    const Colour_table& remap = remap_table(FOUR_BIT_COLOUR);
    size_t r = size_t(offset) / row_bytes, skip = size_t(offset) % row_bytes;
    int written = 0;
    for (; r < H && written < len; ++r, skip = 0) {
        // Only the bytes of the row that are asked for are packed: byte b holds pixels 2b (high
        // nibble) and 2b + 1 (low nibble; 0 past the end of a row of odd width).
        const size_t k = std::min(row_bytes - skip, size_t(len - written));
        uint8_t* dst = out + written;
        const size_t from = r * W;
        size_t c = 2 * skip;
        const size_t end = std::min<size_t>(c + 2 * k, W);
        if (from + W <= n) {
            const uint8_t* src = raw + from;
            for (; c + 1 < end; c += 2)
                *dst++ = uint8_t((remap[src[c]] & 0x0F) << 4 | (remap[src[c + 1]] & 0x0F));
            if (c < end)
                *dst = uint8_t((remap[src[c]] & 0x0F) << 4);
        } else {
            // The stored data is W x H pixels, one per byte; pixels it lacks read as index 255.
            auto pixel = [&](size_t col) { return remap[from + col < n ? raw[from + col] : 255] & 0x0F; };
            for (; c + 1 < end; c += 2)
                *dst++ = uint8_t(pixel(c) << 4 | pixel(c + 1));
            if (c < end)
                *dst = uint8_t(pixel(c) << 4);
        }
        written += int(k);
    }
    return written;
}

int reduce_rle_to_4_bit(const uint8_t* raw, size_t n, uint32_t W, uint32_t H, int offset, uint8_t* out, int len)
{
    const bool counting = out == nullptr;
    if (!counting && (len < 1 || offset < 0))
        return 0;
    int skip = counting ? 0 : offset;
    int room = counting ? 0 : len;
    // The pixels as decompress_rle lays them out: rows of odd width end in a copy of their
    // last pixel, and pixels no run reaches read as index 255.
    const size_t total = ((size_t(W) + 1) & ~size_t(1)) * H;
    if (total == 0)
        return emit_run(0, 0, skip, out, room);
    const Colour_table& remap = remap_table(FOUR_BIT_COLOUR);
    Pair_run_encoder encoder(skip, out, room);
    size_t pos = 0;
    if (!walk_runs(raw, n, W, total, remap, &pos, [&](uint8_t v, size_t count) { return encoder.add(v, count); }))
        return clamp_int(encoder.finish());
    if (pos < total)
        encoder.add(remap[255], total - pos);
    return clamp_int(encoder.finish());
}

int emit_run(uint8_t count, uint8_t packed, int& skip, uint8_t*& out, int& room)
{
    if (!out && room == 0 && skip == 0)
        room = 2;
    const uint8_t record[2] = {count, packed};
    int emitted = 0;
    for (int i = 0; i < 2 && room > 0; ++i) {
        if (skip > 0) {
            --skip;
            continue;
        }
        if (out)
            *out++ = record[i];
        --room;
        ++emitted;
    }
    return emitted;
}

int bits_per_pixel(unsigned format)
{
    static const int bits[] = {1, 4, 8};
    return format <= EIGHT_BIT_COLOUR ? bits[format] : 0;
}

int clamp_int(int64_t v)
{
    return int(std::min<int64_t>(std::max<int64_t>(v, 0), INT_MAX));
}

uint16_t scaled_height(uint16_t width, uint16_t actual_width, uint16_t actual_height)
{
    if (actual_width == 0)
        return 0;
    double h = double(actual_height) * double(width) / double(actual_width);
    return uint16_t(uint32_t(h));
}

}
