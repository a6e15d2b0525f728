#include "can/vt/objects/Base/shape/Ellipse_obj.h"

namespace VT {
namespace Base {

Ellipse_obj::Ellipse_obj(unsigned short id, const char* name, unsigned short line_attrs, unsigned short w,
                         unsigned short h, unsigned char type, unsigned char start, unsigned char end,
                         unsigned short fill_attrs, unsigned char n_macros, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_ELLIPSE, 8, aid_table_storage, 9, every_table_storage, 0, &event_macro, name),
      line_attributes(line_attrs, "line_attributes"), width(0, 65535, w, "width"), height(0, 65535, h, "height"),
      ellipse_type(0, 3, type, "ellipse_type"), start_angle(0, 180, start, "start_angle"),
      end_angle(0, 180, end, "end_angle"), fill_attributes(fill_attrs, "fill_attributes"),
      event_macro("event_macro", macros, n_macros)
{
    init_lists();
}

Ellipse_obj::Ellipse_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_ELLIPSE, 8, aid_table_storage, 9, every_table_storage, NO_NAME, NULL_ID)
{
    init_lists();
}

void Ellipse_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_ELLIPSE>(), &line_attributes, &width, &height,
                                  &ellipse_type, &start_angle, &end_angle, &fill_attributes});
    set_table(every_table_storage, {&line_attributes, &width, &height, &ellipse_type, &start_angle, &end_angle,
                                    &fill_attributes, &num_macros, &event_macro});
}

}
}
