#ifndef CAN_VT_OBJECTS_BASE_FIELD_NAMED_COLOUR_OBJ_H
#define CAN_VT_OBJECTS_BASE_FIELD_NAMED_COLOUR_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// Named colour (type 243): ties the colour attributes that name it (refs: object id and
// attribute id, which have no byte form) to a picture object. Nothing beyond AID 0 is
// addressable.
class Named_colour_obj : public VT_obj
{
public:
    Named_colour_obj(uint16_t id, const char* name, uint16_t num_refs, Attribute_identifier<unsigned char>* refs,
                     uint16_t pictures);
    explicit Named_colour_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_NAMED_COLOUR; }

    VT_ATTRIBUTE_GETTER(uint16_t, num_refs)
    VT_INDEXED_GETTER(uint16_t, refs_oid, refs[i].get_oid())
    VT_INDEXED_GETTER(uint8_t, refs_identifier, refs[i].get_identifier())
    VT_ATTRIBUTE_GETTER(uint16_t, pictures)

private:
    void init_lists();

    Attribute_list_len<uint16_t> num_refs{"num_refs", &refs};
    Attribute_list<Attribute_identifier<unsigned char>> refs;
    Attribute_object_id pictures;
    Attribute* aid_table_storage[1 + 1];
    Attribute* every_table_storage[3 + 1];
};

}
}

#endif
