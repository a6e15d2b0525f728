#include "can/vt/objects/Base/shape/Polygon_obj.h"

namespace VT {
namespace Base {

Polygon_obj::Polygon_obj(uint16_t id, const char* name, uint16_t width_, uint16_t height_, uint16_t line_attributes_,
                         uint16_t fill_attributes_, uint8_t polygon_type_, uint8_t num_points_, uint8_t num_macros_,
                         Attribute_point* points_, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_POLYGON, 6, aid_table_storage, 9, every_table_storage, 0, &event_macro, name),
      width(0, 65535, width_, "width"), height(0, 65535, height_, "height"),
      line_attributes(line_attributes_, "line_attributes"), fill_attributes(fill_attributes_, "fill_attributes"),
      polygon_type(0, 3, polygon_type_, "polygon_type"), points("points", points_, num_points_),
      event_macro("event_macro", macros, num_macros_)
{
    init_lists();
}

Polygon_obj::Polygon_obj(Spec_node* spec)
    : VT_obj(spec, TYPE_POLYGON, 6, aid_table_storage, 9, every_table_storage, NO_NAME, NULL_ID),
      width(0, 65535, 0, "width"), height(0, 65535, 0, "height"), line_attributes(NULL_ID, "line_attributes"),
      fill_attributes(NULL_ID, "fill_attributes"), polygon_type(0, 3, 0, "polygon_type"), points("points"),
      event_macro("event_macro")
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

}
}
