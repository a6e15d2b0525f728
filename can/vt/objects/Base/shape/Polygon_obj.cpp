#include "can/vt/objects/Base/shape/Polygon_obj.h"

namespace VT {
namespace Base {

Polygon_obj::Polygon_obj(unsigned short id, const char* name, unsigned short w, unsigned short h,
                         unsigned short line_attrs, unsigned short fill_attrs, unsigned char type,
                         unsigned char n_points, unsigned char n_macros, Attribute_point* pts,
                         Attribute_event_macro* macros)
    : VT_obj(id, TYPE_POLYGON, 6, aid_table_storage, 9, every_table_storage, 0, &event_macro, name),
      width(0, 65535, w, "width"), height(0, 65535, h, "height"), line_attributes(line_attrs, "line_attributes"),
      fill_attributes(fill_attrs, "fill_attributes"), polygon_type(0, 3, type, "polygon_type"),
      points("points", pts, n_points), event_macro("event_macro", macros, n_macros)
{
    init_lists();
}

Polygon_obj::Polygon_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_POLYGON, 6, aid_table_storage, 9, every_table_storage, NO_NAME, NULL_ID)
{
    init_lists();
}

void Polygon_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_POLYGON>(), &width, &height, &line_attributes,
                                  &fill_attributes, &polygon_type});
    set_table(every_table_storage, {&width, &height, &line_attributes, &fill_attributes, &polygon_type, &num_points,
                                    &num_macros, &points, &event_macro});
}

void Polygon_obj::__set_scale(uint16_t x_mul, uint16_t y_mul, uint16_t x_div, uint16_t y_div)
{
    // Products fit in 32 bits (16 x 16); the quotient is truncated and kept as 16 bits.
    for (uint32_t i = 0; i < points.held(); ++i) {
        Attribute_point& p = points[i];
        p.set_x(uint16_t(uint32_t(p.get_x()) * x_mul / x_div));
        p.set_y(uint16_t(uint32_t(p.get_y()) * y_mul / y_div));
    }
    VT_obj::__set_scale(x_mul, y_mul, x_div, y_div);
}

}
}
