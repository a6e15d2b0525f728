#ifndef CAN_VT_OBJECTS_BASE_PALETTE_COLOUR_PALETTE_OBJ_H
#define CAN_VT_OBJECTS_BASE_PALETTE_COLOUR_PALETTE_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// Colour palette (type 45): replaces the terminal's palette with 32-bit ARGB colours.
class Colour_palette_obj : public VT_obj
{
public:
    // Borrows `colours` (num_colours entries); the caller keeps it alive.
    Colour_palette_obj(uint16_t id, const char* name, uint8_t options, uint8_t num_colours, unsigned int* colours);
    explicit Colour_palette_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_COLOUR_PALETTE; }

    VT_ATTRIBUTE_GETTER(uint8_t, options)
    VT_GETTER(uint8_t, num_colours, colours.get_length())
    VT_INDEXED_GETTER(unsigned int, colours, colours[i])

private:
    void init_lists();

    // No option is defined yet: 0 is the only valid value.
    Attribute_uint8 options;
    Attribute_list_len<uint8_t> num_colours{"num_colours", &colours};
    Attribute_array_argb colours;
    Attribute* aid_table_storage[2 + 1];
    Attribute* every_table_storage[3 + 1];
};

}
}

#endif
