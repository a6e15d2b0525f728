#ifndef CAN_VT_OBJECTS_BASE_OUTPUT_OUTPUT_STRING_OBJ_H
#define CAN_VT_OBJECTS_BASE_OUTPUT_OUTPUT_STRING_OBJ_H

#include "can/vt/objects/Object_class.h"
#include "platform/String_base.h"

namespace VT {
namespace Base {

// Output string (type 11): a text shown in a box; its length takes two bytes.
class Output_string_obj : public VT_obj
{
public:
    // Borrows `string` (length bytes); copies num_macros entries of `macros`.
    Output_string_obj(uint16_t id, const char* name, unsigned short width, unsigned short height,
                      unsigned char background_colour, unsigned short font_attributes, unsigned char options,
                      unsigned short variable_reference, unsigned char horizontal_justification,
                      unsigned short length, char* string, unsigned char num_macros, Attribute_event_macro* macros);
    explicit Output_string_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_OUTPUT_STRING; }
    // The font attributes object scales with the field.
    uint16_t __get_scaling_child() const override { return font_attributes; }

    VT_ATTRIBUTE_GETTER(uint16_t, width)
    VT_ATTRIBUTE_GETTER(uint16_t, height)
    VT_ATTRIBUTE_GETTER(uint8_t, background_colour)
    VT_ATTRIBUTE_GETTER(uint16_t, font_attributes)
    VT_ATTRIBUTE_GETTER(uint8_t, options)
    VT_ATTRIBUTE_GETTER(uint16_t, variable_reference)
    VT_ATTRIBUTE_GETTER(uint8_t, horizontal_justification)
    VT_ATTRIBUTE_GETTER(uint16_t, length)
    VT_STRING_GETTERS(string)
    // Hands the whole text to `dst`.
    void get_string(String_base& dst) const
    {
        lock();
        _get_string(dst);
        unlock();
    }
    void _get_string(String_base& dst) const;
    VT_ATTRIBUTE_GETTER(uint8_t, num_macros)
    VT_EVENT_MACRO_GETTERS(event_macro)

private:
    void init_lists();

    Attribute_uint16 width;
    Attribute_uint16 height;
    Attribute_colour background_colour;
    Attribute_object_id font_attributes;
    Attribute_uint8 options;
    Attribute_object_id variable_reference;
    Attribute_uint8 horizontal_justification;
    Attribute_list_len<uint16_t> length;
    Attribute_array_char string;
    Attribute_list_len<uint8_t> num_macros;
    Attribute_list<Attribute_event_macro> event_macro;
    Attribute* aid_table_storage[8 + 1];
    Attribute* every_table_storage[11 + 1];
};

}
}

#endif
