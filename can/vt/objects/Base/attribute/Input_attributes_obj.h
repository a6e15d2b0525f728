#ifndef CAN_VT_OBJECTS_BASE_ATTRIBUTE_INPUT_ATTRIBUTES_OBJ_H
#define CAN_VT_OBJECTS_BASE_ATTRIBUTE_INPUT_ATTRIBUTES_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Input attributes (type 26): the characters an input string accepts (validation type 0)
// or rejects (1). The validation string follows its own length byte directly.
class Input_attributes_obj : public VT_obj
{
    Attribute_uint8 validation_type{0, 1, 0, "validation_type"};
    Attribute_list_len<unsigned char> length{"length", &string};
    Attribute_array_char string{"string"};
    Attribute_list_len<unsigned char> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    // Borrows `string` (length bytes); the caller keeps it alive.
    Input_attributes_obj(unsigned short id, const char* name, unsigned char validation_type, unsigned char length,
                         char* string, unsigned char num_macros, Attribute_event_macro* event_macro);
    explicit Input_attributes_obj(Spec_node* node) : VT_obj(node, TYPE_INPUT_ATTRIBUTES, tables) { init_lists(); }

    VT_ATTRIBUTE_GETTERS(validation_type, length, num_macros)
    VT_EVENT_MACRO_GETTERS(event_macro)
    // The validation string.
    VT_STRING_GETTERS(string)

    VT_OBJECT_TABLES(TYPE_INPUT_ATTRIBUTES, (validation_type),
                     (validation_type, length, string, num_macros, event_macro))
};

}

#endif
