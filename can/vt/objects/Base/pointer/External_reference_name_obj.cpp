#include "can/vt/objects/Base/pointer/External_reference_name_obj.h"

namespace VT {
namespace Base {

External_reference_name_obj::External_reference_name_obj(uint16_t id, const char* name, unsigned char options_v,
                                                         unsigned int name0_v, unsigned int name1_v)
    : VT_obj(id, TYPE_EXTERNAL_REFERENCE_NAME, 4, aid_table_storage, 3, every_table_storage, 0, nullptr, name),
      options(0, 255, options_v, "options"), name0(0, 4294967295u, name0_v, "name0"),
      name1(0, 4294967295u, name1_v, "name1")
{
    init_lists();
}

External_reference_name_obj::External_reference_name_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_EXTERNAL_REFERENCE_NAME, 4, aid_table_storage, 3, every_table_storage, NO_NAME, NULL_ID),
      options(0, 255, 0, "options"), name0(0, 4294967295u, 0, "name0"), name1(0, 4294967295u, 0, "name1")
{
    init_lists();
}

void External_reference_name_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_EXTERNAL_REFERENCE_NAME>(), &options, &name0, &name1});
    set_table(every_table_storage, {&options, &name0, &name1});
}

}
}
