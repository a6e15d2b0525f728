#ifndef CAN_VT_OBJECTS_BASE_FIELD_NAMED_COLOUR_MASK_OBJ_H
#define CAN_VT_OBJECTS_BASE_FIELD_NAMED_COLOUR_MASK_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Named colour mask (type 244): the pictures whose colours it marks (identifiers, which have
// no byte form) and the mask data itself. Nothing beyond AID 0 is addressable.
class Named_colour_mask_obj : public VT_obj
{
    Attribute_list_len<uint8_t> num_pictures{"num_pictures", &pictures};
    Attribute_list_len<uint16_t> data_length{"data_length", &data};
    Attribute_list<Attribute_identifier<unsigned short>> pictures{"pictures"};
    Attribute_array_uint8 data{"data"};

public:
    // Copies `pictures`; borrows `data` (data_length bytes), which the caller keeps alive.
    Named_colour_mask_obj(uint16_t id, const char* name, uint8_t num_pictures, uint16_t data_length,
                          Attribute_identifier<unsigned short>* pictures, uint8_t* data);
    explicit Named_colour_mask_obj(Spec_node* node) : VT_obj(node, TYPE_NAMED_COLOUR_MASK, tables) { init_lists(); }

    VT_ATTRIBUTE_GETTERS(num_pictures, data_length)
    VT_INDEXED_GETTER(uint16_t, pictures_oid, pictures[i].get_oid())
    VT_INDEXED_GETTER(uint16_t, pictures_identifier, pictures[i].get_identifier())
    VT_INDEXED_GETTER(uint8_t, data, data[i])

    VT_OBJECT_TABLES(TYPE_NAMED_COLOUR_MASK, (), (num_pictures, data_length, pictures, data))
};

}

#endif
