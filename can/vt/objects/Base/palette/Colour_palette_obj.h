#ifndef CAN_VT_OBJECTS_BASE_PALETTE_COLOUR_PALETTE_OBJ_H
#define CAN_VT_OBJECTS_BASE_PALETTE_COLOUR_PALETTE_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Colour palette (type 45): replaces the terminal's palette with 32-bit ARGB colours.
class Colour_palette_obj : public VT_obj
{
    // No option is defined yet: 0 is the only valid value.
    Attribute_uint8 options{0, 0, 0, "options"};
    Attribute_list_len<uint8_t> num_colours{"num_colours", &colours};
    Attribute_array_argb colours{"colours"};

public:
    // Borrows `colours` (num_colours entries); the caller keeps it alive.
    Colour_palette_obj(uint16_t id, const char* name, uint8_t options, uint8_t num_colours, unsigned int* colours);
    explicit Colour_palette_obj(Spec_node* node) : VT_obj(node, TYPE_COLOUR_PALETTE, tables) { init_lists(); }

    VT_ATTRIBUTE_GETTERS(options)
    VT_GETTER(uint8_t, num_colours, colours.get_length())
    VT_INDEXED_GETTER(unsigned int, colours, colours[i])

    VT_OBJECT_TABLES(TYPE_COLOUR_PALETTE, (options), (options, num_colours, colours))
};

}

#endif
