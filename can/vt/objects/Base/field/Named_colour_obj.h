#ifndef CAN_VT_OBJECTS_BASE_FIELD_NAMED_COLOUR_OBJ_H
#define CAN_VT_OBJECTS_BASE_FIELD_NAMED_COLOUR_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Named colour (type 243): ties the colour attributes that name it (refs: object id and
// attribute id, which have no byte form) to a picture object. Nothing beyond AID 0 is
// addressable.
class Named_colour_obj : public VT_obj
{
    Attribute_list_len<uint16_t> num_refs{"num_refs", &refs};
    Attribute_list<Attribute_identifier<unsigned char>> refs{"refs"};
    Attribute_object_id pictures{65535, "pictures"};

public:
    Named_colour_obj(uint16_t id, const char* name, uint16_t num_refs, Attribute_identifier<unsigned char>* refs,
                     uint16_t pictures);
    explicit Named_colour_obj(Spec_node* node) : VT_obj(node, TYPE_NAMED_COLOUR, tables) { init_lists(); }

    VT_ATTRIBUTE_GETTERS(num_refs, pictures)
    VT_INDEXED_GETTER(uint16_t, refs_oid, refs[i].get_oid())
    VT_INDEXED_GETTER(uint8_t, refs_identifier, refs[i].get_identifier())

    VT_OBJECT_TABLES(TYPE_NAMED_COLOUR, (), (num_refs, refs, pictures))
};

}

#endif
