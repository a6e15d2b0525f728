#include "can/vt/objects/Base/attribute/Input_attributes_obj.h"

namespace VT {
namespace Base {

Input_attributes_obj::Input_attributes_obj(unsigned short id, const char* name, unsigned char validation,
                                           unsigned char len, char* text, unsigned char n_macros,
                                           Attribute_event_macro* macros)
    : VT_obj(id, TYPE_INPUT_ATTRIBUTES, 2, aid_table_storage, 5, every_table_storage, 0, &event_macro, name),
      validation_type(0, 1, validation, "validation_type"), string(text, len, "string"),
      event_macro("event_macro", macros, n_macros)
{
    init_lists();
}

Input_attributes_obj::Input_attributes_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_INPUT_ATTRIBUTES, 2, aid_table_storage, 5, every_table_storage, NO_NAME, NULL_ID)
{
    init_lists();
}

void Input_attributes_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_INPUT_ATTRIBUTES>(), &validation_type});
    set_table(every_table_storage, {&validation_type, &length, &string, &num_macros, &event_macro});
}

}
}
