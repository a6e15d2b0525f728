#include "can/vt/objects/Base/pointer/Object_pointer_base_obj.h"

namespace VT {
namespace Base {

Object_pointer_base_obj::Object_pointer_base_obj(uint16_t id, const char* name, unsigned short value_v)
    : VT_obj(id, TYPE_OBJECT_POINTER, 2, aid_table_storage, 1, every_table_storage, 0, nullptr, name),
      value(value_v, "value")
{
    init_lists();
}

Object_pointer_base_obj::Object_pointer_base_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_OBJECT_POINTER, 2, aid_table_storage, 1, every_table_storage, NO_NAME, NULL_ID),
      value(65535, "value")
{
    init_lists();
}

void Object_pointer_base_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_OBJECT_POINTER>(), &value});
    set_table(every_table_storage, {&value});
}

}
}
