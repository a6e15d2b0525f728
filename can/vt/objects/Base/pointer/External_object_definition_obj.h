#ifndef CAN_VT_OBJECTS_BASE_POINTER_EXTERNAL_OBJECT_DEFINITION_OBJ_H
#define CAN_VT_OBJECTS_BASE_POINTER_EXTERNAL_OBJECT_DEFINITION_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// External object definition (type 41): the objects this working set lets the working set
// named by name0/name1 (the low and high 32 bits of its 64-bit name) show.
class External_object_definition_obj : public VT_obj
{
    Attribute_uint8 options{0, 255, 0, "options"};
    Attribute_uint32 name0{0, 4294967295u, 0, "name0"};
    Attribute_uint32 name1{0, 4294967295u, 0, "name1"};
    Attribute_list_len<uint8_t> num_list_items{"num_list_items", &child_objects};
    Attribute_list<Attribute_object_id> child_objects{"child_objects"};

public:
    // Copies num_list_items entries of `child_objects`.
    External_object_definition_obj(uint16_t id, const char* name, unsigned char options, unsigned int name0,
                                   unsigned int name1, unsigned char num_list_items,
                                   Attribute_object_id* child_objects);
    explicit External_object_definition_obj(Spec_node* node) : VT_obj(node, TYPE_EXTERNAL_OBJECT_DEFINITION, tables)
    {
        init_lists();
    }

    VT_ATTRIBUTE_GETTERS(options, name0, name1, num_list_items)
    VT_INDEXED_GETTER(uint16_t, child_objects, child_objects[i].get())

    VT_OBJECT_TABLES(TYPE_EXTERNAL_OBJECT_DEFINITION, (options, name0, name1),
                     (options, name0, name1, num_list_items, child_objects))
};

}

#endif
