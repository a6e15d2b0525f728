#ifndef CAN_VT_OBJECTS_BASE_VARIABLE_NUMBER_VARIABLE_OBJ_H
#define CAN_VT_OBJECTS_BASE_VARIABLE_NUMBER_VARIABLE_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Number variable (type 21): a 32-bit value that other objects display.
class Number_variable_obj : public VT_obj
{
    Attribute_uint32 value{0, 4294967295u, 0, "value"};

public:
    Number_variable_obj(uint16_t id, const char* name, uint32_t value);
    explicit Number_variable_obj(Spec_node* node) : VT_obj(node, TYPE_NUMBER_VARIABLE, tables) { init_lists(); }

    VT_ATTRIBUTE_GETTERS(value)

    VT_OBJECT_TABLES(TYPE_NUMBER_VARIABLE, (value), (value))
};

}

#endif
