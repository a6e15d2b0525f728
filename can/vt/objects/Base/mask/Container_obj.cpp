#include "can/vt/objects/Base/mask/Container_obj.h"

namespace VT::Base {

Container_obj::Container_obj(unsigned short id, const char* name, unsigned short w, unsigned short h,
                             unsigned char hide, unsigned char n_objects, unsigned char n_macros,
                             Attribute_object_placement* placements, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_CONTAINER, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), w, h, hide, n_objects, n_macros, placements, macros);
    init_lists();
}

}
