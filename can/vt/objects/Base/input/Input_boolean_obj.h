#ifndef CAN_VT_OBJECTS_BASE_INPUT_INPUT_BOOLEAN_OBJ_H
#define CAN_VT_OBJECTS_BASE_INPUT_INPUT_BOOLEAN_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// Input boolean (type 7): a check box bound to a value or a number variable.
class Input_boolean_obj : public VT_obj
{
public:
    // Copies num_macros entries of `macros`.
    Input_boolean_obj(uint16_t id, const char* name, unsigned char background_colour, unsigned short width,
                      unsigned short foreground_colour, unsigned short variable_reference, unsigned char value,
                      unsigned char enabled, unsigned char num_macros, Attribute_event_macro* macros);
    explicit Input_boolean_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_INPUT_BOOLEAN; }

    VT_ATTRIBUTE_GETTER(uint8_t, background_colour)
    VT_ATTRIBUTE_GETTER(uint16_t, width)
    // The foreground colour is given by a font attributes object.
    VT_ATTRIBUTE_GETTER(uint16_t, foreground_colour)
    VT_ATTRIBUTE_GETTER(uint16_t, variable_reference)
    VT_ATTRIBUTE_GETTER(uint8_t, value)
    VT_ATTRIBUTE_GETTER(uint8_t, enabled)
    VT_ATTRIBUTE_GETTER(uint8_t, num_macros)
    VT_EVENT_MACRO_GETTERS(event_macro)

private:
    void init_lists();

    Attribute_colour background_colour;
    Attribute_uint16 width;
    Attribute_object_id foreground_colour;
    Attribute_object_id variable_reference;
    Attribute_uint8 value;
    Attribute_uint8 enabled;
    Attribute_list_len<uint8_t> num_macros;
    Attribute_list<Attribute_event_macro> event_macro;
    Attribute* aid_table_storage[7 + 1];
    Attribute* every_table_storage[8 + 1];
};

}
}

#endif
