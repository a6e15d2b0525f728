#include "can/vt/objects/Base/attribute/Line_attributes_obj.h"

namespace VT::Base {

Line_attributes_obj::Line_attributes_obj(unsigned short id, const char* name, unsigned char colour, unsigned char width,
                                         unsigned short art, unsigned char n_macros, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_LINE_ATTRIBUTES, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), colour, width, art, n_macros, macros);
    init_lists();
}

void Line_attributes_obj::__set_scale(uint16_t x_mul, uint16_t y_mul, uint16_t x_div, uint16_t y_div)
{
    VT_obj::__set_scale(x_mul, y_mul, x_div, y_div);
    line_width = uint8_t(scale_attribute(line_width, y_mul, y_div));
}

void Line_attributes_obj::check_scale_area(scale_area_t area)
{
    if (line_width.get() == 0)
        reset_scale_area();
    const Lock guard(*this);
    __check_scale_area(area);
}

}
