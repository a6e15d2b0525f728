#include "can/vt/objects/Base/field/Swath_obj.h"

#include <vector>

namespace VT::Base {

Swath_obj::Swath_obj(uint16_t id, const char* name, uint8_t maximum_points_, uint16_t width_, uint16_t height_,
                     uint16_t line_attributes_, uint16_t fill_attributes_, uint8_t polygon_type_, uint8_t num_points_,
                     uint8_t num_macros_, Attribute_point* points_, Attribute_event_macro* macros)
    : Polygon_obj(id, name, width_, height_, line_attributes_, fill_attributes_, polygon_type_, num_points_,
                  num_macros_, points_, macros)
{
    maximum_points = maximum_points_;
    init_lists();
}

Swath_obj::Swath_obj(Spec_node* spec_node) : Polygon_obj(spec_node)
{
    init_lists();
}

void Swath_obj::init_lists()
{
    fill_table(every_table_storage, std::tuple_cat(std::tie(maximum_points), every_attributes()));
}

bool Swath_obj::__set_by_spec(scale_area_t area)
{
    uint8_t declared = 0;
    const bool given = spec_node && spec_node->get_uint8(&declared, num_points.name);
    const uint32_t n = given ? declared : points.get_length();
    points.set_counters(n);
    bool result = Polygon_obj::__set_by_spec(area);
    // Coordinates from the description do not survive: the host places the points.
    std::vector<Attribute_point> fresh(n);
    points.set_items(fresh.data(), n);
    polygon_type = 3;
    return result;
}

void Swath_obj::object_init()
{
    scale_x_mul = scale_y_mul = scale_x_div = scale_y_div = 1;
}

void Swath_obj::__set_scale(uint16_t x_mul, uint16_t y_mul, uint16_t x_div, uint16_t y_div)
{
    scale_x_mul = x_mul;
    scale_y_mul = y_mul;
    scale_x_div = x_div;
    scale_y_div = y_div;
    Polygon_obj::__set_scale(x_mul, y_mul, x_div, y_div);
}

}
