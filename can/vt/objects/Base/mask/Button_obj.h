#ifndef CAN_VT_OBJECTS_BASE_MASK_BUTTON_OBJ_H
#define CAN_VT_OBJECTS_BASE_MASK_BUTTON_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Button (type 6): a key drawn in a mask, with a size, a border and a key code.
class Button_obj : public VT_obj
{
    Attribute_uint16 width{0, 65535, 0, "width"};
    Attribute_uint16 height{0, 65535, 0, "height"};
    Attribute_colour background_colour{0, "background_colour"};
    Attribute_colour border_colour{0, "border_colour"};
    // Unlike a soft key, a button may have key code 0.
    Attribute_uint8 key_code{0, 255, 0, "key_code"};
    Attribute_uint8 options{0, 63, 0, "options"};
    Attribute_list_len<unsigned char> num_objects{"num_objects", &child_location};
    Attribute_list_len<unsigned char> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_object_placement> child_location{"child_location"};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    Button_obj(unsigned short id, const char* name, unsigned short width, unsigned short height,
               unsigned char background_colour, unsigned char border_colour, unsigned char key_code,
               unsigned char options, unsigned char num_objects, unsigned char num_macros,
               Attribute_object_placement* child_location, Attribute_event_macro* event_macro);
    explicit Button_obj(Spec_node* node) : VT_obj(node, TYPE_BUTTON, tables) { init_lists(); }

    VT_SIZE_FROM_ATTRIBUTES

    // The children are laid out within the button's face, inside a border of 4 pixels.
    VT_PLACED_CHILDREN(child_location, 4)

    VT_ATTRIBUTE_GETTERS(background_colour, border_colour, key_code, options, num_objects, num_macros)
    VT_CHILD_LOCATION_GETTERS(child_location)
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_BUTTON, (width, height, background_colour, border_colour, key_code, options),
                     (width, height, background_colour, border_colour, key_code, options, num_objects, num_macros,
                      child_location, event_macro))
};

}

#endif
