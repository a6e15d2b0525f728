#ifndef CAN_VT_OBJECTS_BASE_SHAPE_POLYGON_OBJ_H
#define CAN_VT_OBJECTS_BASE_SHAPE_POLYGON_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// Polygon (type 16): a closed or open shape through its points, drawn with line and fill
// attributes.
class Polygon_obj : public VT_obj
{
public:
    Polygon_obj(uint16_t id, const char* name, uint16_t width, uint16_t height, uint16_t line_attributes,
                uint16_t fill_attributes, uint8_t polygon_type, uint8_t num_points, uint8_t num_macros,
                Attribute_point* points, Attribute_event_macro* macros);
    explicit Polygon_obj(Spec_node* spec);
    type_t get_ctype() const override { return TYPE_POLYGON; }
    // Scaling a polygon scales its line attributes too.
    uint16_t __get_scaling_child() const override { return line_attributes; }

    VT_ATTRIBUTE_GETTER(uint16_t, width)
    VT_ATTRIBUTE_GETTER(uint16_t, height)
    VT_ATTRIBUTE_GETTER(uint16_t, line_attributes)
    VT_ATTRIBUTE_GETTER(uint16_t, fill_attributes)
    VT_ATTRIBUTE_GETTER(uint8_t, polygon_type)
    VT_ATTRIBUTE_GETTER(uint8_t, num_points)
    VT_ATTRIBUTE_GETTER(uint8_t, num_macros)
    VT_INDEXED_GETTER(uint16_t, points_point_x, points[i].get_x())
    VT_INDEXED_GETTER(uint16_t, points_point_y, points[i].get_y())
    VT_EVENT_MACRO_GETTERS(event_macro)

private:
    void init_lists();

    Attribute_uint16 width;
    Attribute_uint16 height;
    Attribute_object_id line_attributes;
    Attribute_object_id fill_attributes;
    Attribute_uint8 polygon_type;
    Attribute_list_len<uint8_t> num_points{"num_points", &points};
    Attribute_list_len<uint8_t> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_point> points;
    Attribute_list<Attribute_event_macro> event_macro;
    Attribute* aid_table_storage[6 + 1];
    Attribute* every_table_storage[9 + 1];
};

}
}

#endif
