#ifndef CAN_VT_OBJECTS_BASE_INPUT_INPUT_STRING_OBJ_H
#define CAN_VT_OBJECTS_BASE_INPUT_INPUT_STRING_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// Input string (type 8): a text field of at most 255 characters the operator can edit.
class Input_string_obj : public VT_obj
{
public:
    // Borrows `string` (length bytes); copies num_macros entries of `macros`.
    Input_string_obj(uint16_t id, const char* name, unsigned short width, unsigned short height,
                     unsigned char background_colour, unsigned short font_attributes,
                     unsigned short input_attributes, unsigned char options, unsigned short variable_reference,
                     unsigned char horizontal_justification, unsigned char length, char* string,
                     unsigned char enabled, unsigned char num_macros, Attribute_event_macro* macros);
    explicit Input_string_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_INPUT_STRING; }
    // The font attributes object scales with the field.
    uint16_t __get_scaling_child() const override { return font_attributes; }

    VT_ATTRIBUTE_GETTER(uint16_t, width)
    VT_ATTRIBUTE_GETTER(uint16_t, height)
    VT_ATTRIBUTE_GETTER(uint8_t, background_colour)
    VT_ATTRIBUTE_GETTER(uint16_t, font_attributes)
    VT_ATTRIBUTE_GETTER(uint16_t, input_attributes)
    VT_ATTRIBUTE_GETTER(uint8_t, options)
    VT_ATTRIBUTE_GETTER(uint16_t, variable_reference)
    VT_ATTRIBUTE_GETTER(uint8_t, horizontal_justification)
    VT_ATTRIBUTE_GETTER(uint8_t, length)
    VT_STRING_GETTERS(string)
    VT_ATTRIBUTE_GETTER(uint8_t, enabled)
    VT_ATTRIBUTE_GETTER(uint8_t, num_macros)
    VT_EVENT_MACRO_GETTERS(event_macro)

private:
    void init_lists();

    Attribute_uint16 width;
    Attribute_uint16 height;
    Attribute_colour background_colour;
    Attribute_object_id font_attributes;
    Attribute_object_id input_attributes;
    Attribute_uint8 options;
    Attribute_object_id variable_reference;
    Attribute_uint8 horizontal_justification;
    Attribute_list_len<uint8_t> length;
    Attribute_array_char string;
    Attribute_uint8 enabled;
    Attribute_list_len<uint8_t> num_macros;
    Attribute_list<Attribute_event_macro> event_macro;
    Attribute* aid_table_storage[10 + 1];
    Attribute* every_table_storage[13 + 1];
};

}
}

#endif
