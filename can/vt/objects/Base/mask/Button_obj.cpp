#include "can/vt/objects/Base/mask/Button_obj.h"

namespace VT::Base {

Button_obj::Button_obj(unsigned short id, const char* name, unsigned short w, unsigned short h, unsigned char bg,
                       unsigned char border, unsigned char code, unsigned char opts, unsigned char n_objects,
                       unsigned char n_macros, Attribute_object_placement* placements, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_BUTTON, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), w, h, bg, border, code, opts, n_objects, n_macros, placements, macros);
    init_lists();
}

}
