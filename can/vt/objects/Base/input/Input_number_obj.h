#ifndef CAN_VT_OBJECTS_BASE_INPUT_INPUT_NUMBER_OBJ_H
#define CAN_VT_OBJECTS_BASE_INPUT_INPUT_NUMBER_OBJ_H

#include "can/vt/objects/Base/input/Input_obj_base.h"
#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// Input number (type 9): a number the operator can edit, shown as
// (value + offset) * scale with a number of decimals.
class Input_number_obj : public VT_obj, public Input_obj_base
{
public:
    // Copies num_macros entries of `macros`.
    Input_number_obj(uint16_t id, const char* name, unsigned short width, unsigned short height,
                     unsigned char background_colour, unsigned short font_attributes, unsigned char options,
                     unsigned short variable_reference, unsigned int value, unsigned int min_value,
                     unsigned int max_value, int offset, float scale, unsigned char no_decimals,
                     unsigned char format, unsigned char horizontal_justification, unsigned char options2,
                     unsigned char num_macros, Attribute_event_macro* macros);
    explicit Input_number_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_INPUT_NUMBER; }
    // The font attributes object scales with the field.
    uint16_t __get_scaling_child() const override { return font_attributes; }

    unsigned char get_options2() const override
    {
        lock();
        unsigned char v = _get_options2();
        unlock();
        return v;
    }
    unsigned char _get_options2() const
    {
        __check_locked();
        return options2;
    }
    unsigned char get_options2_aid() override { return 15; }
    VT_obj* get_vt_obj() override { return this; }

    VT_ATTRIBUTE_GETTER(uint16_t, width)
    VT_ATTRIBUTE_GETTER(uint16_t, height)
    VT_ATTRIBUTE_GETTER(uint8_t, background_colour)
    VT_ATTRIBUTE_GETTER(uint16_t, font_attributes)
    VT_ATTRIBUTE_GETTER(uint8_t, options)
    VT_ATTRIBUTE_GETTER(uint16_t, variable_reference)
    VT_ATTRIBUTE_GETTER(uint32_t, value)
    VT_ATTRIBUTE_GETTER(uint32_t, min_value)
    VT_ATTRIBUTE_GETTER(uint32_t, max_value)
    VT_ATTRIBUTE_GETTER(int32_t, offset)
    VT_ATTRIBUTE_GETTER(float, scale)
    VT_ATTRIBUTE_GETTER(uint8_t, no_decimals)
    VT_ATTRIBUTE_GETTER(uint8_t, format)
    VT_ATTRIBUTE_GETTER(uint8_t, horizontal_justification)
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
    Attribute_uint32 value;
    Attribute_uint32 min_value;
    Attribute_uint32 max_value;
    Attribute_int32 offset;
    Attribute_float scale;
    Attribute_uint8 no_decimals;
    Attribute_uint8 format;
    Attribute_uint8 horizontal_justification;
    Attribute_uint8 options2;
    Attribute_list_len<uint8_t> num_macros;
    Attribute_list<Attribute_event_macro> event_macro;
    Attribute* aid_table_storage[16 + 1];
    Attribute* every_table_storage[17 + 1];
};

}
}

#endif
