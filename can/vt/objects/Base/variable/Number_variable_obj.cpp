#include "can/vt/objects/Base/variable/Number_variable_obj.h"

namespace VT {
namespace Base {

Number_variable_obj::Number_variable_obj(uint16_t id, const char* name, uint32_t v)
    : VT_obj(id, TYPE_NUMBER_VARIABLE, 2, aid_table_storage, 1, every_table_storage, 0, nullptr, name),
      value(0, 4294967295u, v, "value")
{
    init_lists();
}

Number_variable_obj::Number_variable_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_NUMBER_VARIABLE, 2, aid_table_storage, 1, every_table_storage, NO_NAME, NULL_ID),
      value(0, 4294967295u, 0, "value")
{
    init_lists();
}

void Number_variable_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_NUMBER_VARIABLE>(), &value});
    set_table(every_table_storage, {&value});
}

}
}
