#include "can/vt/objects/Base/shape/Ellipse_obj.h"

namespace VT::Base {

Ellipse_obj::Ellipse_obj(unsigned short id, const char* name, unsigned short line_attrs, unsigned short w,
                         unsigned short h, unsigned char type, unsigned char start, unsigned char end,
                         unsigned short fill_attrs, unsigned char n_macros, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_ELLIPSE, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), line_attrs, w, h, type, start, end, fill_attrs, n_macros, macros);
    init_lists();
}

}
