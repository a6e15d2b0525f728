#ifndef CAN_VT_OBJECTS_BASE_POINTER_EXTERNAL_REFERENCE_NAME_OBJ_H
#define CAN_VT_OBJECTS_BASE_POINTER_EXTERNAL_REFERENCE_NAME_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// External reference name (type 42): names another working set by its 64-bit name, held as
// name0 (low 32 bits) and name1 (high 32 bits).
class External_reference_name_obj : public VT_obj
{
    Attribute_uint8 options{0, 255, 0, "options"};
    Attribute_uint32 name0{0, 4294967295u, 0, "name0"};
    Attribute_uint32 name1{0, 4294967295u, 0, "name1"};

public:
    External_reference_name_obj(uint16_t id, const char* name, unsigned char options, unsigned int name0,
                                unsigned int name1);
    explicit External_reference_name_obj(Spec_node* node) : VT_obj(node, TYPE_EXTERNAL_REFERENCE_NAME, tables)
    {
        init_lists();
    }

    VT_ATTRIBUTE_GETTERS(options, name0, name1)

    VT_OBJECT_TABLES(TYPE_EXTERNAL_REFERENCE_NAME, (options, name0, name1), (options, name0, name1))
};

}

#endif
