#ifndef CAN_VT_OBJECTS_BASE_VARIABLE_STRING_VARIABLE_OBJ_H
#define CAN_VT_OBJECTS_BASE_VARIABLE_STRING_VARIABLE_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// String variable (type 22): a fixed-width text that other objects display.
class String_variable_obj : public VT_obj
{
    Attribute_list_len<uint16_t> length{"length", &string};
    Attribute_array_char string{"string"};

public:
    // Borrows `string` (length bytes); the caller keeps it alive.
    String_variable_obj(uint16_t id, const char* name, uint16_t length, char* string);
    explicit String_variable_obj(Spec_node* node) : VT_obj(node, TYPE_STRING_VARIABLE, tables) { init_lists(); }

    VT_GETTER(uint16_t, length, string.get_length())
    VT_STRING_GETTERS(string)

    VT_OBJECT_TABLES(TYPE_STRING_VARIABLE, (), (length, string))
};

}

#endif
