#ifndef CAN_VT_OBJECTS_BASE_POINTER_EXTERNAL_OBJECT_DEFINITION_OBJ_H
#define CAN_VT_OBJECTS_BASE_POINTER_EXTERNAL_OBJECT_DEFINITION_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// External object definition (type 41): the objects this working set lets the working set
// named by name0/name1 (the low and high 32 bits of its 64-bit name) show.
class External_object_definition_obj : public VT_obj
{
public:
    // Copies num_list_items entries of `child_objects`.
    External_object_definition_obj(uint16_t id, const char* name, unsigned char options, unsigned int name0,
                                   unsigned int name1, unsigned char num_list_items,
                                   Attribute_object_id* child_objects);
    explicit External_object_definition_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_EXTERNAL_OBJECT_DEFINITION; }

    VT_ATTRIBUTE_GETTER(uint8_t, options)
    VT_ATTRIBUTE_GETTER(uint32_t, name0)
    VT_ATTRIBUTE_GETTER(uint32_t, name1)
    VT_ATTRIBUTE_GETTER(uint8_t, num_list_items)
    VT_INDEXED_GETTER(uint16_t, child_objects, child_objects[i].get())

private:
    void init_lists();

    Attribute_uint8 options;
    Attribute_uint32 name0;
    Attribute_uint32 name1;
    Attribute_list_len<uint8_t> num_list_items;
    Attribute_list<Attribute_object_id> child_objects;
    Attribute* aid_table_storage[4 + 1];
    Attribute* every_table_storage[5 + 1];
};

}
}

#endif
