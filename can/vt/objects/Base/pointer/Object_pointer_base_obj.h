#ifndef CAN_VT_OBJECTS_BASE_POINTER_OBJECT_POINTER_BASE_OBJ_H
#define CAN_VT_OBJECTS_BASE_POINTER_OBJECT_POINTER_BASE_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Object pointer (type 27): shows the object its value refers to.
class Object_pointer_base_obj : public VT_obj
{
protected:
    Attribute_object_id value{65535, "value"};

public:
    Object_pointer_base_obj(uint16_t id, const char* name, unsigned short value);
    explicit Object_pointer_base_obj(Spec_node* node) : VT_obj(node, TYPE_OBJECT_POINTER, tables) { init_lists(); }

    VT_ATTRIBUTE_GETTERS(value)

    VT_OBJECT_TABLES(TYPE_OBJECT_POINTER, (value), (value))
};

}

#endif
