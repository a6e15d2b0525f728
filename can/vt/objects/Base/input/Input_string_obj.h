#ifndef CAN_VT_OBJECTS_BASE_INPUT_INPUT_STRING_OBJ_H
#define CAN_VT_OBJECTS_BASE_INPUT_INPUT_STRING_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Input string (type 8): a text field of at most 255 characters the operator can edit.
class Input_string_obj : public VT_obj
{
    Attribute_uint16 width{0, 65535, 0, "width"};
    Attribute_uint16 height{0, 65535, 0, "height"};
    Attribute_colour background_colour{0, "background_colour"};
    Attribute_object_id font_attributes{65535, "font_attributes"};
    Attribute_object_id input_attributes{65535, "input_attributes"};
    Attribute_uint8 options{0, 7, 0, "options"};
    Attribute_object_id variable_reference{65535, "variable_reference"};
    Attribute_uint8 horizontal_justification{0, 15, 0, "horizontal_justification"};
    Attribute_list_len<uint8_t> length{"length", &string};
    Attribute_array_char string{"string"};
    Attribute_uint8 enabled{0, 1, 0, "enabled"};
    Attribute_list_len<uint8_t> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    // Borrows `string` (length bytes); copies num_macros entries of `macros`.
    Input_string_obj(uint16_t id, const char* name, unsigned short width, unsigned short height,
                     unsigned char background_colour, unsigned short font_attributes, unsigned short input_attributes,
                     unsigned char options, unsigned short variable_reference, unsigned char horizontal_justification,
                     unsigned char length, char* string, unsigned char enabled, unsigned char num_macros,
                     Attribute_event_macro* macros);
    explicit Input_string_obj(Spec_node* node) : VT_obj(node, TYPE_INPUT_STRING, tables) { init_lists(); }
    // The font attributes object scales with the field.
    uint16_t __get_scaling_child() const override { return font_attributes; }

    VT_ATTRIBUTE_GETTERS(width, height, background_colour, font_attributes, input_attributes, options,
                         variable_reference, horizontal_justification, length, enabled, num_macros)
    VT_STRING_GETTERS(string)
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_INPUT_STRING,
                     (width, height, background_colour, font_attributes, input_attributes, options, variable_reference,
                      horizontal_justification, enabled),
                     (width, height, background_colour, font_attributes, input_attributes, options, variable_reference,
                      horizontal_justification, length, string, enabled, num_macros, event_macro))
};

}

#endif
