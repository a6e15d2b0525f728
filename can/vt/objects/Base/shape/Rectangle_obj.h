#ifndef CAN_VT_OBJECTS_BASE_SHAPE_RECTANGLE_OBJ_H
#define CAN_VT_OBJECTS_BASE_SHAPE_RECTANGLE_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Output rectangle (type 14): outlined with its line attributes, sides suppressed by bit,
// filled with its fill attributes.
class Rectangle_obj : public VT_obj
{
    Attribute_object_id line_attributes{65535, "line_attributes"};
    Attribute_uint16 width{0, 65535, 0, "width"};
    Attribute_uint16 height{0, 65535, 0, "height"};
    Attribute_uint8 line_suppression{0, 15, 0, "line_suppression"};
    Attribute_object_id fill_attributes{65535, "fill_attributes"};
    Attribute_list_len<unsigned char> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    Rectangle_obj(unsigned short id, const char* name, unsigned short line_attributes, unsigned short width,
                  unsigned short height, unsigned char line_suppression, unsigned short fill_attributes,
                  unsigned char num_macros, Attribute_event_macro* event_macro);
    explicit Rectangle_obj(Spec_node* node) : VT_obj(node, TYPE_RECTANGLE, tables) { init_lists(); }

    // A rectangle cannot be outlined without line attributes: a pool that leaves them out
    // is refused.
    bool __set_by_spec(scale_area_t area) override;
    // Scaling a rectangle reaches its line width.
    uint16_t __get_scaling_child() const override { return line_attributes; }
    VT_SIZE_FROM_ATTRIBUTES

    VT_ATTRIBUTE_GETTERS(line_attributes, line_suppression, fill_attributes, num_macros)
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_RECTANGLE, (line_attributes, width, height, line_suppression, fill_attributes),
                     (line_attributes, width, height, line_suppression, fill_attributes, num_macros, event_macro))
};

}

#endif
