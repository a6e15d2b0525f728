#ifndef CAN_VT_OBJECTS_BASE_OUTPUT_OUTPUT_NUMBER_OBJ_H
#define CAN_VT_OBJECTS_BASE_OUTPUT_OUTPUT_NUMBER_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Output number (type 12): a number shown as (value + offset) * scale with a number of decimals.
class Output_number_obj : public VT_obj
{
    Attribute_uint16 width{0, 65535, 0, "width"};
    Attribute_uint16 height{0, 65535, 0, "height"};
    Attribute_colour background_colour{0, "background_colour"};
    Attribute_object_id font_attributes{65535, "font_attributes"};
    Attribute_uint8 options{0, 15, 0, "options"};
    Attribute_object_id variable_reference{65535, "variable_reference"};
    Attribute_uint32 value{0, 4294967295u, 0, "value"};
    // A description that gives no "offset" leaves it at the most negative value.
    Attribute_int32 offset{INT32_MIN, INT32_MAX, INT32_MIN, "offset"};
    Attribute_float scale{"scale", 0.0f};
    Attribute_uint8 no_decimals{0, 7, 0, "no_decimals"};
    Attribute_uint8 format{0, 1, 0, "format"};
    Attribute_uint8 horizontal_justification{0, 15, 0, "horizontal_justification"};
    Attribute_list_len<uint8_t> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    // Copies num_macros entries of `macros`.
    Output_number_obj(uint16_t id, const char* name, unsigned short width, unsigned short height,
                      unsigned char background_colour, unsigned short font_attributes, unsigned char options,
                      unsigned short variable_reference, unsigned int value, int offset, float scale,
                      unsigned char no_decimals, unsigned char format, unsigned char horizontal_justification,
                      unsigned char num_macros, Attribute_event_macro* macros);
    explicit Output_number_obj(Spec_node* node) : VT_obj(node, TYPE_OUTPUT_NUMBER, tables) { init_lists(); }
    // The font attributes object scales with the field.
    uint16_t __get_scaling_child() const override { return font_attributes; }

    VT_ATTRIBUTE_GETTERS(width, height, background_colour, font_attributes, options, variable_reference, value, offset,
                         scale, no_decimals, format, horizontal_justification, num_macros)
    VT_EVENT_MACRO_GETTERS(event_macro)

    // "value" comes seventh in byte order but was made addressable after the others.
    VT_OBJECT_TABLES(TYPE_OUTPUT_NUMBER,
                     (width, height, background_colour, font_attributes, options, variable_reference, offset, scale,
                      no_decimals, format, horizontal_justification, value),
                     (width, height, background_colour, font_attributes, options, variable_reference, value, offset,
                      scale, no_decimals, format, horizontal_justification, num_macros, event_macro))
};

}

#endif
