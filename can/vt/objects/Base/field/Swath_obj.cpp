#include "can/vt/objects/Base/field/Swath_obj.h"

#include <vector>

namespace VT {
namespace Base {

Swath_obj::Swath_obj(uint16_t id, const char* name, uint8_t maximum_points_, uint16_t width_, uint16_t height_,
                     uint16_t line_attributes_, uint16_t fill_attributes_, uint8_t polygon_type_, uint8_t num_points_,
                     uint8_t num_macros_, Attribute_point* points_, Attribute_event_macro* macros)
    : Polygon_obj(id, name, width_, height_, line_attributes_, fill_attributes_, polygon_type_, num_points_,
                  num_macros_, points_, macros),
      maximum_points(0, 255, maximum_points_, "maximum_points")
{
    init_lists();
}

Swath_obj::Swath_obj(Spec_node* spec_node) : Polygon_obj(spec_node), maximum_points(0, 255, 0, "maximum_points")
{
    init_lists();
}

void Swath_obj::init_lists()
{
    auto polygon = [this](uint16_t i) { return Polygon_obj::get_every_attribute(i); };
    set_table(every_table_storage, {&maximum_points, polygon(0), polygon(1), polygon(2), polygon(3), polygon(4),
                                    polygon(5), polygon(6), polygon(7), polygon(8)});
    int at = find_attribute("points");
    points_list = at < 0 ? nullptr : dynamic_cast<Attribute_list<Attribute_point>*>(get_every_attribute(uint16_t(at)));
    at = find_attribute("polygon_type");
    polygon_type_attribute = at < 0 ? nullptr : dynamic_cast<Attribute_uint8*>(get_every_attribute(uint16_t(at)));
}

bool Swath_obj::__set_by_spec(scale_area_t area)
{
    uint8_t declared = 0;
    uint32_t n = 0;
    if (spec_node && spec_node->get_uint8(&declared, "num_points"))
        n = declared;
    else if (points_list)
        n = points_list->get_length();
    if (points_list)
        points_list->set_counters(n);
    bool result = Polygon_obj::__set_by_spec(area);
    if (points_list) {
        // Coordinates from the description do not survive: the host places the points.
        std::vector<Attribute_point> fresh(n);
        points_list->set_items(fresh.data(), n);
    }
    if (polygon_type_attribute)
        *polygon_type_attribute = 3;
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
}
