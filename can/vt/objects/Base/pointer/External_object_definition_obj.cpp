#include "can/vt/objects/Base/pointer/External_object_definition_obj.h"

namespace VT {
namespace Base {

External_object_definition_obj::External_object_definition_obj(uint16_t id, const char* name,
                                                               unsigned char options_v, unsigned int name0_v,
                                                               unsigned int name1_v, unsigned char num_list_items_v,
                                                               Attribute_object_id* child_objects_v)
    : VT_obj(id, TYPE_EXTERNAL_OBJECT_DEFINITION, 4, aid_table_storage, 5, every_table_storage, 0, nullptr, name),
      options(0, 255, options_v, "options"), name0(0, 4294967295u, name0_v, "name0"),
      name1(0, 4294967295u, name1_v, "name1"), num_list_items("num_list_items", &child_objects),
      child_objects("child_objects", child_objects_v, num_list_items_v)
{
    init_lists();
}

External_object_definition_obj::External_object_definition_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_EXTERNAL_OBJECT_DEFINITION, 4, aid_table_storage, 5, every_table_storage, NO_NAME, NULL_ID),
      options(0, 255, 0, "options"), name0(0, 4294967295u, 0, "name0"), name1(0, 4294967295u, 0, "name1"),
      num_list_items("num_list_items", &child_objects), child_objects("child_objects")
{
    init_lists();
}

void External_object_definition_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_EXTERNAL_OBJECT_DEFINITION>(), &options, &name0, &name1});
    set_table(every_table_storage, {&options, &name0, &name1, &num_list_items, &child_objects});
}

}
}
