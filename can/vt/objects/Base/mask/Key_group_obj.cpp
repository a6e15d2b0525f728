#include "can/vt/objects/Base/mask/Key_group_obj.h"

namespace VT {
namespace Base {

Key_group_obj::Key_group_obj(unsigned short id, const char* name, unsigned char opts, unsigned short group,
                             unsigned short icon, unsigned char n_objects, unsigned char n_macros,
                             Attribute_object_id* keys, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_KEY_GROUP, 3, aid_table_storage, 7, every_table_storage, 0, &event_macro, name),
      options(0, 3, opts, "options"), group_name(group, "group_name"), key_group_icon(icon, "key_group_icon"),
      child_objects("child_objects", keys, n_objects), event_macro("event_macro", macros, n_macros)
{
    init_lists();
}

Key_group_obj::Key_group_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_KEY_GROUP, 3, aid_table_storage, 7, every_table_storage, NO_NAME, NULL_ID)
{
    init_lists();
}

void Key_group_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_KEY_GROUP>(), &options, &group_name});
    set_table(every_table_storage,
              {&options, &group_name, &key_group_icon, &num_objects, &num_macros, &child_objects, &event_macro});
}

}
}
