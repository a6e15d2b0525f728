#include "can/vt/objects/Base/mask/Key_group_obj.h"

namespace VT::Base {

Key_group_obj::Key_group_obj(unsigned short id, const char* name, unsigned char opts, unsigned short group,
                             unsigned short icon, unsigned char n_objects, unsigned char n_macros,
                             Attribute_object_id* keys, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_KEY_GROUP, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), opts, group, icon, n_objects, n_macros, keys, macros);
    init_lists();
}

}
