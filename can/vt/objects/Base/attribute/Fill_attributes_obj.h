#ifndef CAN_VT_OBJECTS_BASE_ATTRIBUTE_FILL_ATTRIBUTES_OBJ_H
#define CAN_VT_OBJECTS_BASE_ATTRIBUTE_FILL_ATTRIBUTES_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Fill attributes (type 25): how the objects that refer to it are filled: not at all, with
// the line colour, with a colour of its own or with a pattern picture.
class Fill_attributes_obj : public VT_obj
{
    Attribute_uint8 fill_type{0, 3, 0, "fill_type"};
    Attribute_colour fill_colour{0, "fill_colour"};
    Attribute_object_id fill_pattern{65535, "fill_pattern"};
    Attribute_list_len<unsigned char> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    Fill_attributes_obj(unsigned short id, const char* name, unsigned char fill_type, unsigned char fill_colour,
                        unsigned short fill_pattern, unsigned char num_macros, Attribute_event_macro* event_macro);
    explicit Fill_attributes_obj(Spec_node* node) : VT_obj(node, TYPE_FILL_ATTRIBUTES, tables) { init_lists(); }

    // Scaling the fill reaches its pattern picture.
    uint16_t __get_scaling_child() const override { return fill_pattern; }

    VT_ATTRIBUTE_GETTERS(fill_type, fill_colour, fill_pattern, num_macros)
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_FILL_ATTRIBUTES, (fill_type, fill_colour, fill_pattern),
                     (fill_type, fill_colour, fill_pattern, num_macros, event_macro))
};

}

#endif
