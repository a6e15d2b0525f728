#include "can/vt/objects/Base/pointer/External_object_pointer_obj.h"

namespace VT {
namespace Base {

External_object_pointer_obj::External_object_pointer_obj(uint16_t id, const char* name,
                                                         unsigned short default_object_id_v,
                                                         unsigned short external_reference_name_id_v,
                                                         unsigned short value_v)
    : VT_obj(id, TYPE_EXTERNAL_OBJECT_POINTER, 4, aid_table_storage, 3, every_table_storage, 0, nullptr, name),
      default_object_id(default_object_id_v, "default_object_id"),
      external_reference_name_id(external_reference_name_id_v, "external_reference_name_id"),
      value(value_v, "value")
{
    init_lists();
}

External_object_pointer_obj::External_object_pointer_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_EXTERNAL_OBJECT_POINTER, 4, aid_table_storage, 3, every_table_storage, NO_NAME, NULL_ID),
      default_object_id(65535, "default_object_id"), external_reference_name_id(65535, "external_reference_name_id"),
      value(65535, "value")
{
    init_lists();
}

void External_object_pointer_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_EXTERNAL_OBJECT_POINTER>(), &default_object_id,
                                  &external_reference_name_id, &value});
    set_table(every_table_storage, {&default_object_id, &external_reference_name_id, &value});
}

}
}
