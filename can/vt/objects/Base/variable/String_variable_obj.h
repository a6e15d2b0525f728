#ifndef CAN_VT_OBJECTS_BASE_VARIABLE_STRING_VARIABLE_OBJ_H
#define CAN_VT_OBJECTS_BASE_VARIABLE_STRING_VARIABLE_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// String variable (type 22): a fixed-width text that other objects display.
class String_variable_obj : public VT_obj
{
public:
    // Borrows `string` (length bytes); the caller keeps it alive.
    String_variable_obj(uint16_t id, const char* name, uint16_t length, char* string);
    explicit String_variable_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_STRING_VARIABLE; }

    VT_GETTER(uint16_t, length, string.get_length())
    VT_STRING_GETTERS(string)

private:
    void init_lists();

    Attribute_list_len<uint16_t> length;
    Attribute_array_char string;
    Attribute* aid_table_storage[1 + 1];
    Attribute* every_table_storage[2 + 1];
};

}
}

#endif
