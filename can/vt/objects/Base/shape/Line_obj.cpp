#include "can/vt/objects/Base/shape/Line_obj.h"

namespace VT::Base {

Line_obj::Line_obj(unsigned short id, const char* name, unsigned short line_attrs, unsigned short w, unsigned short h,
                   unsigned char direction, unsigned char n_macros, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_LINE, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), line_attrs, w, h, direction, n_macros, macros);
    init_lists();
}

bool Line_obj::__set_by_spec(scale_area_t area)
{
    bool r = VT_obj::__set_by_spec(area);
    attribute_null_check(line_attributes);
    return r;
}

}
