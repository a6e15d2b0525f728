#include "can/vt/objects/Base/attribute/Font_attributes_obj.h"

#include <cassert>
#include <cstdlib>

namespace VT {
namespace Base {

Font_attributes_obj::Font_attributes_obj(unsigned short id, const char* name, unsigned char colour,
                                         font_size_t size, unsigned char type, unsigned char style,
                                         unsigned char n_macros, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_FONT_ATTRIBUTES, 5, aid_table_storage, 6, every_table_storage, 0, &event_macro, name),
      font_colour(colour, "font_colour"), font_size(this, size, "font_size"), font_type(0, 255, type, "font_type"),
      font_style(this, style, "font_style"), event_macro("event_macro", macros, n_macros)
{
    init_lists();
}

Font_attributes_obj::Font_attributes_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_FONT_ATTRIBUTES, 5, aid_table_storage, 6, every_table_storage, NO_NAME, NULL_ID)
{
    init_lists();
}

void Font_attributes_obj::init_lists()
{
    set_table(aid_table_storage,
              {class_type_attribute<TYPE_FONT_ATTRIBUTES>(), &font_colour, &font_size, &font_type, &font_style});
    set_table(every_table_storage, {&font_colour, &font_size, &font_type, &font_style, &num_macros, &event_macro});
}

int Font_attributes_obj::Attribute_font_size::serialise(int, uint8_t*, int) const
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

int Font_attributes_obj::Attribute_font_style::serialise(int, uint8_t*, int) const
{
    assert(false);
    abort();
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
}
