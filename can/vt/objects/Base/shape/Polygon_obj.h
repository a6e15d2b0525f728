#ifndef CAN_VT_OBJECTS_BASE_SHAPE_POLYGON_OBJ_H
#define CAN_VT_OBJECTS_BASE_SHAPE_POLYGON_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Output polygon (type 16): points relative to its box, joined by lines and optionally
// filled. Unlike the other shapes its size comes before its attribute references.
class Polygon_obj : public VT_obj
{
protected:
    Attribute_uint16 width{0, 65535, 0, "width"};
    Attribute_uint16 height{0, 65535, 0, "height"};
    Attribute_object_id line_attributes{65535, "line_attributes"};
    Attribute_object_id fill_attributes{65535, "fill_attributes"};
    Attribute_uint8 polygon_type{0, 3, 0, "polygon_type"};
    Attribute_list_len<unsigned char> num_points{"num_points", &points};
    Attribute_list_len<unsigned char> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_point> points{"points"};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    Polygon_obj(unsigned short id, const char* name, unsigned short width, unsigned short height,
                unsigned short line_attributes, unsigned short fill_attributes, unsigned char polygon_type,
                unsigned char num_points, unsigned char num_macros, Attribute_point* points,
                Attribute_event_macro* event_macro);
    explicit Polygon_obj(Spec_node* node) : VT_obj(node, TYPE_POLYGON, tables) { init_lists(); }

    // Scales the points as well as the box.
    void __set_scale(uint16_t x_mul, uint16_t y_mul, uint16_t x_div, uint16_t y_div) override;
    // Scaling a polygon reaches its line width.
    uint16_t __get_scaling_child() const override { return line_attributes; }
    VT_SIZE_FROM_ATTRIBUTES

    VT_ATTRIBUTE_GETTERS(line_attributes, fill_attributes, polygon_type, num_points, num_macros)
    VT_INDEXED_GETTER(unsigned short, points_point_x, points[i].get_x())
    VT_INDEXED_GETTER(unsigned short, points_point_y, points[i].get_y())
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_POLYGON, (width, height, line_attributes, fill_attributes, polygon_type),
                     (width, height, line_attributes, fill_attributes, polygon_type, num_points, num_macros, points,
                      event_macro))
};

}

#endif
