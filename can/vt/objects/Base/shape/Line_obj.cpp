#include "can/vt/objects/Base/shape/Line_obj.h"

namespace VT {
namespace Base {

Line_obj::Line_obj(unsigned short id, const char* name, unsigned short line_attrs, unsigned short w,
                   unsigned short h, unsigned char direction, unsigned char n_macros, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_LINE, 5, aid_table_storage, 6, every_table_storage, 0, &event_macro, name),
      line_attributes(line_attrs, "line_attributes"), width(0, 65535, w, "width"), height(0, 65535, h, "height"),
      line_direction(0, 1, direction, "line_direction"), event_macro("event_macro", macros, n_macros)
{
    init_lists();
}

Line_obj::Line_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_LINE, 5, aid_table_storage, 6, every_table_storage, NO_NAME, NULL_ID)
{
    init_lists();
}

void Line_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_LINE>(), &line_attributes, &width, &height, &line_direction});
    set_table(every_table_storage, {&line_attributes, &width, &height, &line_direction, &num_macros, &event_macro});
}

bool Line_obj::__set_by_spec(scale_area_t area)
{
    bool r = VT_obj::__set_by_spec(area);
    attribute_null_check(line_attributes);
    return r;
}

}
}
