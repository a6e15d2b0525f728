#include "can/vt/objects/Base/shape/Rectangle_obj.h"

namespace VT::Base {

Rectangle_obj::Rectangle_obj(unsigned short id, const char* name, unsigned short line_attrs, unsigned short w,
                             unsigned short h, unsigned char suppression, unsigned short fill_attrs,
                             unsigned char n_macros, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_RECTANGLE, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), line_attrs, w, h, suppression, fill_attrs, n_macros, macros);
    init_lists();
}

bool Rectangle_obj::__set_by_spec(scale_area_t area)
{
    bool r = VT_obj::__set_by_spec(area);
    attribute_null_check(line_attributes);
    return r;
}

}
