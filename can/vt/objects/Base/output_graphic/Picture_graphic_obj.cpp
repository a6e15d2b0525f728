#include "can/vt/objects/Base/output_graphic/Picture_graphic_obj.h"

#include <QFile>
#include <algorithm>
#include <array>
#include <cassert>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

#include "platform/Debug_print.h"

namespace VT {
namespace Base {

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

// Plain (not run-length coded) data: every row starts on a byte boundary of the raw data.
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

// Run-length coded data: (count, value) pairs; each repetition of the value unpacks as one
// raw byte of the format, and a row end inside a repetition drops the rest of it.
// Returns false for a format that has no unpacking.
bool decode_rle(unsigned format, const uint8_t* raw, size_t n, Pixel_writer& w)
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
                w.write(std::min(8u, w.width - w.c), [&mono, value](uint8_t* dst, size_t m) {
                    memcpy(dst, mono[value], m);
                });
            break;
        }
    }
    return true;
}

// Emits the two bytes of one 4-bit run record, first using up `skip`, at most `room` bytes.
// Without an output and with neither room nor skip, the record is only counted.
inline int emit_run(uint8_t count, uint8_t packed, int& skip, uint8_t*& out, int& room)
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

int clamp_int(int64_t v)
{
    return int(std::min<int64_t>(std::max<int64_t>(v, 0), INT_MAX));
}

}

// ---- Attribute_format ----

int Picture_graphic_obj::Attribute_format::serialise(int offset, uint8_t* buf, int len) const
{
    if (len < 1 || offset != 0)
        return 0;
    if (!picture) {
        buf[0] = get();
        return 1;
    }
    buf[0] = uint8_t(picture->_get_display_format());
    // The count attribute that follows sends the pixel data's size in this format.
    picture->bytes.set_picture(picture);
    return 1;
}

void Picture_graphic_obj::Attribute_format::get_code_valref(const char*, std::ostream& os, int)
{
    switch (get()) {
    case MONOCHROME:
        os << "MONOCHROME";
        break;
    case FOUR_BIT_COLOUR:
        os << "FOUR_BIT_COLOUR";
        break;
    case EIGHT_BIT_COLOUR:
        os << "EIGHT_BIT_COLOUR";
        break;
    default:
        break;
    }
}

// ---- Attribute_array_pixel ----

void Picture_graphic_obj::Attribute_array_pixel::set_picture(Picture_graphic_obj* p)
{
    picture = p;
    set_counters(uint32_t(num_bytes()));
}

uint32_t Picture_graphic_obj::Attribute_array_pixel::colour_depth() const
{
    Pool_helper_api* helper = picture ? picture->get_pool_helper() : nullptr;
    const Serialisation_limits* limits = helper ? helper->get_serialisation_limits() : nullptr;
    return limits ? limits->colour_format : uint32_t(EIGHT_BIT_COLOUR);
}

// Reduction applies to pictures deeper than the terminal; pictures that fit it are sent as
// stored (reading 1- or 4-bit data as 8-bit pixels would send garbage of the wrong size).
int Picture_graphic_obj::Attribute_array_pixel::num_bytes() const
{
    if (!picture)
        return Attribute_array_uint8::num_bytes();
    if (picture->is_server_obj())
        return clamp_int(stored_bytes());
    const uint32_t depth = colour_depth();
    const unsigned stored_format = picture->format.get();
    if (picture->options.get() & OPTION_RUN_LENGTH) {
        switch (depth) {
        case FOUR_BIT_COLOUR:
            if (stored_format > FOUR_BIT_COLOUR)
                return serialise_4_bit(0, nullptr, 0);
            return clamp_int(stored_bytes());
        case MONOCHROME:
            return serialise_1_bit(0, nullptr, 0);
        case EIGHT_BIT_COLOUR:
            return clamp_int(stored_bytes());
        default:
            break;
        }
    }
    int bits;
    switch (picture->_get_display_format()) {
    case MONOCHROME:
        bits = 1;
        break;
    case FOUR_BIT_COLOUR:
        bits = 4;
        break;
    case EIGHT_BIT_COLOUR:
        bits = 8;
        break;
    default:
        return 0;
    }
    int64_t row = (int64_t(bits) * picture->actual_width.get() + 7) / 8;
    return clamp_int(row * picture->actual_height.get());
}

int Picture_graphic_obj::Attribute_array_pixel::serialise(int offset, uint8_t* out, int len) const
{
    if (picture && !picture->is_server_obj()) {
        const uint32_t depth = colour_depth();
        if (depth == MONOCHROME)
            return serialise_1_bit(offset, out, len);
        if (depth == FOUR_BIT_COLOUR && picture->format.get() > FOUR_BIT_COLOUR)
            return serialise_4_bit(offset, out, len);
    }
    if (!out)
        return num_bytes();
    return Attribute_array_uint8::serialise(offset, out, len);
}

int Picture_graphic_obj::Attribute_array_pixel::deserialise(int offset, uint8_t* in, int len, Iso::Deserialise_results*)
{
    const uint32_t count = length;
    if (len < 0 || offset != 0 || uint64_t(count) > uint64_t(len))
        return 0;
    if (!allocate(count))
        return 0;
    if (count)
        memcpy(buf, in, count);
    return int(count);
}

int Picture_graphic_obj::Attribute_array_pixel::serialise_1_bit(int, uint8_t*, int) const
{
    return 0;
}

int Picture_graphic_obj::Attribute_array_pixel::serialise_4_bit(int offset, uint8_t* out, int len) const
{
    if (!picture)
        return 0;
    if (picture->options.get() & OPTION_RUN_LENGTH)
        return serialise_4_bit_rle(offset, out, len);
    return serialise_4_bit_plain(offset, out, len);
}

int Picture_graphic_obj::Attribute_array_pixel::serialise_4_bit_plain(int offset, uint8_t* out, int len) const
{
    const uint32_t W = picture->actual_width.get(), H = picture->actual_height.get();
    const size_t row_bytes = (size_t(W) + 1) / 2;
    const int64_t total = int64_t(row_bytes) * H;
    if (!out)
        return clamp_int(total);
    if (len < 1 || offset < 0 || offset >= total)
        return 0;
    const Colour_table& remap = remap_table(FOUR_BIT_COLOUR);
    const uint8_t* raw = stored();
    const size_t n = stored_bytes();
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

void Picture_graphic_obj::Attribute_array_pixel::decompress_rle(unsigned char* out, format_t mode) const
{
    if (!picture || !out)
        return;
    const uint32_t W = picture->actual_width.get(), H = picture->actual_height.get();
    const size_t padded = (size_t(W) + 1) & ~size_t(1);
    const size_t total = padded * H;
    const Colour_table& remap = remap_table(mode);
    const uint8_t* raw = stored();
    const size_t n = stored_bytes();
    size_t pos = 0;
    walk_runs(raw, n, W, total, remap, &pos, [&](uint8_t v, size_t count) {
        fill(out + pos, v, count);
        return true;
    });
    // Pixels that no run reaches (the runs fall short of the picture).
    if (pos < total)
        memset(out + pos, remap[255], total - pos);
}

int Picture_graphic_obj::Attribute_array_pixel::write_4_bit_rle(unsigned char count, unsigned char high,
                                                                unsigned char low, int& skip, unsigned char*& out,
                                                                int& room)
{
    return emit_run(count, uint8_t(high << 4 | (low & 0x0F)), skip, out, room);
}

namespace {

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

int Picture_graphic_obj::Attribute_array_pixel::serialise_4_bit_rle(int offset, uint8_t* out, int len) const
{
    const bool counting = out == nullptr;
    if (!counting && (len < 1 || offset < 0))
        return 0;
    int skip = counting ? 0 : offset;
    int room = counting ? 0 : len;
    const uint32_t W = picture->actual_width.get(), H = picture->actual_height.get();
    // The pixels as decompress_rle lays them out: rows of odd width end in a copy of their
    // last pixel, and pixels no run reaches read as index 255.
    const size_t total = ((size_t(W) + 1) & ~size_t(1)) * H;
    if (total == 0)
        return emit_run(0, 0, skip, out, room);
    const Colour_table& remap = remap_table(FOUR_BIT_COLOUR);
    const uint8_t* raw = stored();
    const size_t n = stored_bytes();
    Pair_run_encoder encoder(skip, out, room);
    size_t pos = 0;
    if (!walk_runs(raw, n, W, total, remap, &pos, [&](uint8_t v, size_t count) { return encoder.add(v, count); }))
        return clamp_int(encoder.finish());
    if (pos < total)
        encoder.add(remap[255], total - pos);
    return clamp_int(encoder.finish());
}

// ---- Picture_graphic_obj ----

Picture_graphic_obj::Picture_graphic_obj(unsigned short id, const char* name, unsigned short w, unsigned short aw,
                                         unsigned short ah, format_t f, unsigned char opts, unsigned char transparency,
                                         unsigned int n_bytes, unsigned char n_macros, unsigned char* data,
                                         Attribute_event_macro* macros)
    : VT_obj(id, TYPE_PICTURE_GRAPHIC, 7, aid_table_storage, 10, every_table_storage, 0, &event_macro, name),
      width(0, 65535, w, "width"), actual_width(0, 65535, aw, "actual_width"),
      actual_height(0, 65535, ah, "actual_height"), format(uint8_t(f), "format"), options(0, 7, opts, "options"),
      transparency_colour(transparency, "transparency_colour"), byte_count("num_bytes", &bytes),
      num_macros("num_macros", &event_macro), bytes(data, int(n_bytes), "bytes"),
      event_macro("event_macro", macros, n_macros), decoded(nullptr), decoded_size(0), png_buf(nullptr),
      png_size(0), png_owned(0)
{
    init_lists();
    object_init();
}

Picture_graphic_obj::Picture_graphic_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_PICTURE_GRAPHIC, 7, aid_table_storage, 10, every_table_storage, NO_NAME, NULL_ID),
      width(0, 65535, 0, "width"), actual_width(0, 65535, 0, "actual_width"),
      actual_height(0, 65535, 0, "actual_height"), format(0, "format"), options(0, 7, 0, "options"),
      transparency_colour(0, "transparency_colour"), byte_count("num_bytes", &bytes),
      num_macros("num_macros", &event_macro), bytes("bytes"), event_macro("event_macro"), decoded(nullptr),
      decoded_size(0), png_buf(nullptr), png_size(0), png_owned(0)
{
    init_lists();
    object_init();
}

Picture_graphic_obj::~Picture_graphic_obj()
{
    if (png_owned)
        delete[] png_buf;
    png_owned = 0;
    free(decoded);
}

void Picture_graphic_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_PICTURE_GRAPHIC>(), &width, &options,
                                  &transparency_colour, &actual_width, &actual_height, &format});
    set_table(every_table_storage, {&width, &actual_width, &actual_height, &format, &options, &transparency_colour,
                                    &byte_count, &num_macros, &bytes, &event_macro});
}

void Picture_graphic_obj::object_init()
{
    free(decoded);
    decoded = nullptr;
    decoded_size = 0;
    qimage = QImage();
    opaque_image = QImage();
    if (png_owned)
        delete[] png_buf;
    png_buf = nullptr;
    png_size = 0;
    png_owned = 0;
    format.set_picture(this);
    bytes.set_picture(this);
}

bool Picture_graphic_obj::_get_bytes(unsigned offset, unsigned char* out, unsigned len) const
{
    __check_locked();
    const uint32_t n = bytes.stored_bytes();
    if (offset >= n || !out)
        return false;
    const unsigned k = std::min(len, n - offset);
    if (k)
        memcpy(out, bytes.stored() + offset, k);
    return k > 0;
}

uint16_t Picture_graphic_obj::_get_height() const
{
    __check_locked();
    if (actual_width.get() == 0)
        return 0;
    double h = double(actual_height.get()) * double(width.get()) / double(actual_width.get());
    return uint16_t(uint32_t(h));
}

unsigned char* Picture_graphic_obj::__get_uncompressed_buf(bool)
{
    const uint32_t W = actual_width.get(), H = actual_height.get();
    const size_t stride = (size_t(W) + 3) & ~size_t(3);
    const size_t size = stride * H;
    decoded_size = size;
    if (size == 0) {
        Debug_print::dprint("Zero buffer size\n");
        return nullptr;
    }
    void* grown = realloc(decoded, size);
    if (!grown) {
        decoded_size = 0;
        return nullptr;
    }
    decoded = static_cast<unsigned char*>(grown);
    // Pixels that the data does not reach, and the row padding, read as palette index 255.
    memset(decoded, 255, size);
    const uint8_t* raw = bytes.stored();
    const size_t n = bytes.stored_bytes();
    const unsigned fmt = format.get();
    if (!(options.get() & OPTION_RUN_LENGTH)) {
        decode_plain(fmt, raw, n, W, H, stride, decoded);
        return decoded;
    }
    Pixel_writer writer{decoded, size, W, stride - W};
    if (!decode_rle(fmt, raw, n, writer)) {
        Debug_print::dprint("MODE ERROR\n");
        return decoded;
    }
    if (writer.p > size)
        Debug_print::dprint("WARNING: Incorrect RLE encoding: %s\n", get_name());
    return decoded;
}

void Picture_graphic_obj::set_qimage()
{
    lock();
    _set_qimage();
    unlock();
}

void Picture_graphic_obj::_set_qimage()
{
    unsigned char* data = __get_uncompressed_buf(false);
    opaque_image = QImage();
    if (!data) {
        qimage = QImage();
        return;
    }
    const int W = actual_width.get(), H = actual_height.get();
    const int stride = (W + 3) & ~3;
    qimage = QImage(data, W, H, stride, QImage::Format_Indexed8).copy();
    if (qimage.isNull())
        return;
    assert(qimage.format() == QImage::Format_Indexed8);
    qimage.setColorCount(256);
    qimage.setColorTable(Colours::get_standard_vt_colour_table());
}

QImage Picture_graphic_obj::get_qimage(bool opaque)
{
    lock();
    if (qimage.isNull() || !is_server_obj())
        _set_qimage();
    QImage result;
    if (!(options.get() & OPTION_TRANSPARENT) || opaque) {
        if (opaque_image.isNull()) {
            opaque_image = qimage.copy();
            if (!opaque_image.isNull())
                opaque_image.setColorTable(Colours::get_standard_vt_colour_table());
        }
        result = opaque_image;
    } else if (!qimage.isNull()) {
        result = qimage.copy();
        result.setColorTable(Colours::get_standard_vt_colour_table());
        result.setColor(transparency_colour.get(), 0);
    }
    unlock();
    return result;
}

bool Picture_graphic_obj::get_picture(Picture_image& image)
{
    lock();
    const uint32_t W = actual_width.get();
    const unsigned fmt = format.get();
    const uint8_t* raw = bytes.stored();
    const size_t n = bytes.stored_bytes();
    // No per-row byte alignment here, and the bits are taken lowest first.
    int col = 0, row = 0;
    auto put = [&](uint8_t colour) {
        image.set_vt_pixel(col, row, colour);
        if (uint32_t(++col) >= W) {
            col = 0;
            ++row;
        }
    };
    auto unpack = [&](uint8_t b) {
        switch (fmt) {
        case MONOCHROME:
            for (int bit = 0; bit < 8; ++bit)
                put(uint8_t((b >> bit) & 1));
            break;
        case FOUR_BIT_COLOUR:
            put(uint8_t(b & 0x0F));
            put(uint8_t(b >> 4));
            break;
        case EIGHT_BIT_COLOUR:
            put(b);
            break;
        default:
            break;
        }
    };
    if (!(options.get() & OPTION_RUN_LENGTH)) {
        for (size_t i = 0; i < n; ++i)
            unpack(raw[i]);
    } else {
        for (size_t i = 0; i + 1 < n; i += 2)
            for (unsigned k = 0; k < raw[i]; ++k)
                unpack(raw[i + 1]);
    }
    unlock();
    return true;
}

format_t Picture_graphic_obj::_get_display_format() const
{
    if (is_server_obj())
        return format_t(format.get());
    const Serialisation_limits* limits = pool_helper ? pool_helper->get_serialisation_limits() : nullptr;
    const uint32_t depth = limits ? limits->colour_format : uint32_t(EIGHT_BIT_COLOUR);
    return format_t(std::min<uint32_t>(format.get(), depth));
}

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
    const uint8_t head[15] = {uint8_t(oid), uint8_t(oid >> 8), uint8_t(TYPE_PNG), uint8_t(w), uint8_t(w >> 8),
                              uint8_t(aw), uint8_t(aw >> 8), uint8_t(ah), uint8_t(ah >> 8), 0, uint8_t(n),
                              uint8_t(n >> 8), uint8_t(n >> 16), uint8_t(n >> 24), 0};
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

void Picture_graphic_obj::__set_scale(uint16_t num_x, uint16_t num_y, uint16_t den_x, uint16_t den_y)
{
    // Deliberately left alone at this one factor.
    if (num_x == 234 && den_x == 240)
        return;
    const uint16_t before = _get_width();
    VT_obj::__set_scale(num_x, num_y, den_x, den_y);
    const int64_t aw = actual_width.get(), ah = actual_height.get();
    // A very wide picture keeps its displayed width a whole multiple of its aspect step.
    if (aw > 5 * ah && ah > 0 && width.get() != before)
        width = uint16_t(((int64_t(width.get()) * ah) / aw) * aw / ah);
}

}
}
