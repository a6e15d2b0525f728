#ifndef CAN_VT_OBJECTS_BASE_POINTER_EXTERNAL_OBJECT_POINTER_OBJ_H
#define CAN_VT_OBJECTS_BASE_POINTER_EXTERNAL_OBJECT_POINTER_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// External object pointer (type 43): shows an object of another working set (named by an
// external reference name object), or a default object of this one.
class External_object_pointer_obj : public VT_obj
{
    Attribute_object_id default_object_id{65535, "default_object_id"};
    Attribute_object_id external_reference_name_id{65535, "external_reference_name_id"};
    Attribute_object_id value{65535, "value"};

public:
    External_object_pointer_obj(uint16_t id, const char* name, unsigned short default_object_id,
                                unsigned short external_reference_name_id, unsigned short value);
    explicit External_object_pointer_obj(Spec_node* node) : VT_obj(node, TYPE_EXTERNAL_OBJECT_POINTER, tables)
    {
        init_lists();
    }

    VT_ATTRIBUTE_GETTERS(default_object_id, external_reference_name_id, value)

    VT_OBJECT_TABLES(TYPE_EXTERNAL_OBJECT_POINTER, (default_object_id, external_reference_name_id, value),
                     (default_object_id, external_reference_name_id, value))
};

}

#endif
