#include "can/vt/objects/Base/attribute/Font_attributes_obj.h"

#include <cassert>
#include <cstdlib>

namespace VT::Base {

Font_attributes_obj::Font_attributes_obj(unsigned short id, const char* name, unsigned char colour, font_size_t size,
                                         unsigned char type, unsigned char style, unsigned char n_macros,
                                         Attribute_event_macro* macros)
    : VT_obj(id, TYPE_FONT_ATTRIBUTES, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), colour, size, type, style, n_macros, macros);
    init_lists();
}

int Font_attributes_obj::Attribute_font_byte::serialise(int, uint8_t*, int) const
{
    assert(false);
    abort();
}

uint8_t Font_attributes_obj::Attribute_font_size::reduce(uint8_t v, uint8_t style, const Serialisation_limits* limits,
                                                         bool has_owner)
{
    // A proportional font has no fixed sizes to choose from: the size passes through the
    // style mask unchanged otherwise.
    if (!has_owner || (style & STYLE_PROPORTIONAL))
        return limits ? uint8_t(v & limits->font_style_mask) : v;
    if (!limits)
        return 0;
    // Bit k stands for size k + 1; size 0 has no bit and is always there.
    unsigned supported = unsigned(limits->small_font_mask & 0x7F) | (unsigned(limits->large_font_mask) << 7);
    if (v == 0 || v > 14)
        return 0;
    for (unsigned s = v; s >= 1; --s)
        if (supported & (1u << (s - 1)))
            return uint8_t(s);
    return 0;
}

int Font_attributes_obj::Attribute_font_size::serialise(const Serialisation_limits* limits, int offset, uint8_t* buf,
                                                        int len) const
{
    if (offset != 0 || len < 1)
        return 0;
    buf[0] = reduce(value, owner ? owner->font_style.get() : 0, limits, owner != nullptr);
    return 1;
}

int Font_attributes_obj::Attribute_font_style::serialise(const Serialisation_limits* limits, int offset, uint8_t* buf,
                                                         int len) const
{
    if (offset != 0 || len < 1)
        return 0;
    buf[0] = limits ? uint8_t(value & limits->font_style_mask) : value;
    return 1;
}

}
