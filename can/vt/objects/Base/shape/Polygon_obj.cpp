#include "can/vt/objects/Base/shape/Polygon_obj.h"

namespace VT::Base {

Polygon_obj::Polygon_obj(unsigned short id, const char* name, unsigned short w, unsigned short h,
                         unsigned short line_attrs, unsigned short fill_attrs, unsigned char type,
                         unsigned char n_points, unsigned char n_macros, Attribute_point* pts,
                         Attribute_event_macro* macros)
    : VT_obj(id, TYPE_POLYGON, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), w, h, line_attrs, fill_attrs, type, n_points, n_macros, pts, macros);
    init_lists();
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
