#include "can/vt/objects/Base/variable/String_variable_obj.h"

namespace VT {
namespace Base {

String_variable_obj::String_variable_obj(uint16_t id, const char* name, uint16_t len, char* text)
    : VT_obj(id, TYPE_STRING_VARIABLE, 1, aid_table_storage, 2, every_table_storage, 0, nullptr, name),
      length("length", &string), string(text, len, "string")
{
    init_lists();
}

String_variable_obj::String_variable_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_STRING_VARIABLE, 1, aid_table_storage, 2, every_table_storage, NO_NAME, NULL_ID),
      length("length", &string), string("string")
{
    init_lists();
}

void String_variable_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_STRING_VARIABLE>()});
    set_table(every_table_storage, {&length, &string});
}

}
}
