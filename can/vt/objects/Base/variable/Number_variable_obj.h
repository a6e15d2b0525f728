#ifndef CAN_VT_OBJECTS_BASE_VARIABLE_NUMBER_VARIABLE_OBJ_H
#define CAN_VT_OBJECTS_BASE_VARIABLE_NUMBER_VARIABLE_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// Number variable (type 21): a 32-bit value that other objects display.
class Number_variable_obj : public VT_obj
{
public:
    Number_variable_obj(uint16_t id, const char* name, uint32_t value);
    explicit Number_variable_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_NUMBER_VARIABLE; }

    VT_ATTRIBUTE_GETTER(uint32_t, value)

private:
    void init_lists();

    Attribute_uint32 value;
    Attribute* aid_table_storage[2 + 1];
    Attribute* every_table_storage[1 + 1];
};

}
}

#endif
