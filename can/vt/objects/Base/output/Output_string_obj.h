#ifndef CAN_VT_OBJECTS_BASE_OUTPUT_OUTPUT_STRING_OBJ_H
#define CAN_VT_OBJECTS_BASE_OUTPUT_OUTPUT_STRING_OBJ_H

#include "can/vt/objects/Object_class.h"
#include "platform/String_base.h"

namespace VT::Base {

// Output string (type 11): a text shown in a box; its length takes two bytes.
class Output_string_obj : public VT_obj
{
    Attribute_uint16 width{0, 65535, 0, "width"};
    Attribute_uint16 height{0, 65535, 0, "height"};
    Attribute_colour background_colour{0, "background_colour"};
    Attribute_object_id font_attributes{65535, "font_attributes"};
    Attribute_uint8 options{0, 7, 0, "options"};
    Attribute_object_id variable_reference{65535, "variable_reference"};
    Attribute_uint8 horizontal_justification{0, 15, 0, "horizontal_justification"};
    Attribute_list_len<uint16_t> length{"length", &string};
    Attribute_array_char string{"string"};
    Attribute_list_len<uint8_t> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    // Borrows `string` (length bytes); copies num_macros entries of `macros`.
    Output_string_obj(uint16_t id, const char* name, unsigned short width, unsigned short height,
                      unsigned char background_colour, unsigned short font_attributes, unsigned char options,
                      unsigned short variable_reference, unsigned char horizontal_justification, unsigned short length,
                      char* string, unsigned char num_macros, Attribute_event_macro* macros);
    explicit Output_string_obj(Spec_node* node) : VT_obj(node, TYPE_OUTPUT_STRING, tables) { init_lists(); }
    // The font attributes object scales with the field.
    uint16_t __get_scaling_child() const override { return font_attributes; }

    VT_ATTRIBUTE_GETTERS(width, height, background_colour, font_attributes, options, variable_reference,
                         horizontal_justification, length, num_macros)
    VT_STRING_GETTERS(string)
    // Hands the whole text to `dst`.
    void get_string(String_base& dst) const
    {
        const Lock guard(*this);
        _get_string(dst);
    }
    void _get_string(String_base& dst) const;
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_OUTPUT_STRING,
                     (width, height, background_colour, font_attributes, options, variable_reference,
                      horizontal_justification),
                     (width, height, background_colour, font_attributes, options, variable_reference,
                      horizontal_justification, length, string, num_macros, event_macro))
};

}

#endif
