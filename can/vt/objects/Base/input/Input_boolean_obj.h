#ifndef CAN_VT_OBJECTS_BASE_INPUT_INPUT_BOOLEAN_OBJ_H
#define CAN_VT_OBJECTS_BASE_INPUT_INPUT_BOOLEAN_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Input boolean (type 7): a check box bound to a value or a number variable.
class Input_boolean_obj : public VT_obj
{
    Attribute_colour background_colour{0, "background_colour"};
    Attribute_uint16 width{0, 65535, 0, "width"};
    Attribute_object_id foreground_colour{65535, "foreground_colour"};
    Attribute_object_id variable_reference{65535, "variable_reference"};
    Attribute_uint8 value{0, 255, 0, "value"};
    Attribute_uint8 enabled{0, 1, 0, "enabled"};
    Attribute_list_len<uint8_t> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    // Copies num_macros entries of `macros`.
    Input_boolean_obj(uint16_t id, const char* name, unsigned char background_colour, unsigned short width,
                      unsigned short foreground_colour, unsigned short variable_reference, unsigned char value,
                      unsigned char enabled, unsigned char num_macros, Attribute_event_macro* macros);
    explicit Input_boolean_obj(Spec_node* node) : VT_obj(node, TYPE_INPUT_BOOLEAN, tables) { init_lists(); }

    VT_ATTRIBUTE_GETTERS(background_colour, width, foreground_colour, variable_reference, value, enabled, num_macros)
    // The foreground colour is given by a font attributes object.
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_INPUT_BOOLEAN,
                     (background_colour, width, foreground_colour, variable_reference, value, enabled),
                     (background_colour, width, foreground_colour, variable_reference, value, enabled, num_macros,
                      event_macro))
};

}

#endif
