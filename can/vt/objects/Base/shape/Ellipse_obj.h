#ifndef CAN_VT_OBJECTS_BASE_SHAPE_ELLIPSE_OBJ_H
#define CAN_VT_OBJECTS_BASE_SHAPE_ELLIPSE_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Output ellipse (type 15): a closed ellipse, or an open or closed segment or section of
// one between two angles (in units of 2 degrees).
class Ellipse_obj : public VT_obj
{
    Attribute_object_id line_attributes{65535, "line_attributes"};
    Attribute_uint16 width{0, 65535, 0, "width"};
    Attribute_uint16 height{0, 65535, 0, "height"};
    Attribute_uint8 ellipse_type{0, 3, 0, "ellipse_type"};
    Attribute_uint8 start_angle{0, 180, 0, "start_angle"};
    Attribute_uint8 end_angle{0, 180, 0, "end_angle"};
    Attribute_object_id fill_attributes{65535, "fill_attributes"};
    Attribute_list_len<unsigned char> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    Ellipse_obj(unsigned short id, const char* name, unsigned short line_attributes, unsigned short width,
                unsigned short height, unsigned char ellipse_type, unsigned char start_angle, unsigned char end_angle,
                unsigned short fill_attributes, unsigned char num_macros, Attribute_event_macro* event_macro);
    explicit Ellipse_obj(Spec_node* node) : VT_obj(node, TYPE_ELLIPSE, tables) { init_lists(); }

    // Scaling an ellipse reaches its line width.
    uint16_t __get_scaling_child() const override { return line_attributes; }
    VT_SIZE_FROM_ATTRIBUTES

    VT_ATTRIBUTE_GETTERS(line_attributes, ellipse_type, start_angle, end_angle, fill_attributes, num_macros)
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_ELLIPSE,
                     (line_attributes, width, height, ellipse_type, start_angle, end_angle, fill_attributes),
                     (line_attributes, width, height, ellipse_type, start_angle, end_angle, fill_attributes, num_macros,
                      event_macro))
};

}

#endif
