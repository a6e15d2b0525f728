#include "can/vt/objects/Base/shape/Rectangle_obj.h"

namespace VT {
namespace Base {

Rectangle_obj::Rectangle_obj(unsigned short id, const char* name, unsigned short line_attrs, unsigned short w,
                             unsigned short h, unsigned char suppression, unsigned short fill_attrs,
                             unsigned char n_macros, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_RECTANGLE, 6, aid_table_storage, 7, every_table_storage, 0, &event_macro, name),
      line_attributes(line_attrs, "line_attributes"), width(0, 65535, w, "width"), height(0, 65535, h, "height"),
      line_suppression(0, 15, suppression, "line_suppression"), fill_attributes(fill_attrs, "fill_attributes"),
      event_macro("event_macro", macros, n_macros)
{
    init_lists();
}

Rectangle_obj::Rectangle_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_RECTANGLE, 6, aid_table_storage, 7, every_table_storage, NO_NAME, NULL_ID)
{
    init_lists();
}

void Rectangle_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_RECTANGLE>(), &line_attributes, &width, &height,
                                  &line_suppression, &fill_attributes});
    set_table(every_table_storage,
              {&line_attributes, &width, &height, &line_suppression, &fill_attributes, &num_macros, &event_macro});
}

bool Rectangle_obj::__set_by_spec(scale_area_t area)
{
    bool r = VT_obj::__set_by_spec(area);
    attribute_null_check(line_attributes);
    return r;
}

}
}
