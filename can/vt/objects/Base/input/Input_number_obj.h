#ifndef CAN_VT_OBJECTS_BASE_INPUT_INPUT_NUMBER_OBJ_H
#define CAN_VT_OBJECTS_BASE_INPUT_INPUT_NUMBER_OBJ_H

#include "can/vt/objects/Base/input/Input_obj_base.h"
#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Input number (type 9): a number the operator can edit, shown as
// (value + offset) * scale with a number of decimals.
class Input_number_obj : public VT_obj, public Input_obj_base
{
    Attribute_uint16 width{0, 65535, 0, "width"};
    Attribute_uint16 height{0, 65535, 0, "height"};
    Attribute_colour background_colour{0, "background_colour"};
    Attribute_object_id font_attributes{65535, "font_attributes"};
    Attribute_uint8 options{0, 15, 0, "options"};
    Attribute_object_id variable_reference{65535, "variable_reference"};
    Attribute_uint32 value{0, 4294967295u, 0, "value"};
    Attribute_uint32 min_value{0, 4294967295u, 0, "min_value"};
    Attribute_uint32 max_value{0, 4294967295u, 0, "max_value"};
    // A description that gives no "offset" leaves it at the most negative value.
    Attribute_int32 offset{INT32_MIN, INT32_MAX, INT32_MIN, "offset"};
    Attribute_float scale{"scale", 0.0f};
    Attribute_uint8 no_decimals{0, 7, 0, "no_decimals"};
    Attribute_uint8 format{0, 1, 0, "format"};
    Attribute_uint8 horizontal_justification{0, 15, 0, "horizontal_justification"};
    Attribute_uint8 options2{0, 3, 0, "options2"};
    Attribute_list_len<uint8_t> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    // Copies num_macros entries of `macros`.
    Input_number_obj(uint16_t id, const char* name, unsigned short width, unsigned short height,
                     unsigned char background_colour, unsigned short font_attributes, unsigned char options,
                     unsigned short variable_reference, unsigned int value, unsigned int min_value,
                     unsigned int max_value, int offset, float scale, unsigned char no_decimals, unsigned char format,
                     unsigned char horizontal_justification, unsigned char options2, unsigned char num_macros,
                     Attribute_event_macro* macros);
    explicit Input_number_obj(Spec_node* node) : VT_obj(node, TYPE_INPUT_NUMBER, tables) { init_lists(); }
    // The font attributes object scales with the field.
    uint16_t __get_scaling_child() const override { return font_attributes; }

    VT_ATTRIBUTE_GETTER_OVERRIDE(unsigned char, options2)
    unsigned char get_options2_aid() override { return AID::options2; }
    VT_obj* get_vt_obj() override { return this; }

    VT_ATTRIBUTE_GETTERS(width, height, background_colour, font_attributes, options, variable_reference, value,
                         min_value, max_value, offset, scale, no_decimals, format, horizontal_justification, num_macros)
    VT_EVENT_MACRO_GETTERS(event_macro)

    // "value" comes seventh in byte order but was made addressable after the others.
    VT_OBJECT_TABLES(TYPE_INPUT_NUMBER,
                     (width, height, background_colour, font_attributes, options, variable_reference, min_value,
                      max_value, offset, scale, no_decimals, format, horizontal_justification, value, options2),
                     (width, height, background_colour, font_attributes, options, variable_reference, value, min_value,
                      max_value, offset, scale, no_decimals, format, horizontal_justification, options2, num_macros,
                      event_macro))
};

}

#endif
