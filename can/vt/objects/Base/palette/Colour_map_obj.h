#ifndef CAN_VT_OBJECTS_BASE_PALETTE_COLOUR_MAP_OBJ_H
#define CAN_VT_OBJECTS_BASE_PALETTE_COLOUR_MAP_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Colour map (type 39): a table that maps each palette index to another one.
class Colour_map_obj : public VT_obj
{
    Attribute_list_len<uint16_t> num_colours{"num_colours", &colours};
    Attribute_array_uint8 colours{"colours"};

public:
    // Borrows `colours` (num_colours entries); the caller keeps it alive.
    Colour_map_obj(uint16_t id, const char* name, uint16_t num_colours, uint8_t* colours);
    explicit Colour_map_obj(Spec_node* node) : VT_obj(node, TYPE_COLOUR_MAP, tables) { init_lists(); }

    VT_GETTER(uint16_t, num_colours, colours.get_length())
    VT_INDEXED_GETTER(uint8_t, colours, colours[i])

    VT_OBJECT_TABLES(TYPE_COLOUR_MAP, (), (num_colours, colours))
};

}

#endif
