#include "can/vt/objects/Base/output/Output_list_obj.h"

namespace VT {
namespace Base {

Output_list_obj::Output_list_obj(uint16_t id, const char* name, unsigned short width_v, unsigned short height_v,
                                 unsigned short variable_reference_v, unsigned char value_v,
                                 unsigned char num_list_items_v, unsigned char num_macros_v, Attribute_object_id* items,
                                 Attribute_event_macro* macros)
    : VT_obj(id, TYPE_OUTPUT_LIST, 5, aid_table_storage, 8, every_table_storage, 0, &event_macro, name),
      width(0, 65535, width_v, "width"), height(0, 65535, height_v, "height"),
      variable_reference(variable_reference_v, "variable_reference"), value(0, 255, value_v, "value"),
      num_list_items("num_list_items", &child_objects), num_macros("num_macros", &event_macro),
      child_objects("child_objects", items, num_list_items_v), event_macro("event_macro", macros, num_macros_v)
{
    init_lists();
}

Output_list_obj::Output_list_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_OUTPUT_LIST, 5, aid_table_storage, 8, every_table_storage, NO_NAME, NULL_ID),
      width(0, 65535, 0, "width"), height(0, 65535, 0, "height"), variable_reference(65535, "variable_reference"),
      value(0, 255, 0, "value"), num_list_items("num_list_items", &child_objects),
      num_macros("num_macros", &event_macro), child_objects("child_objects"), event_macro("event_macro")
{
    init_lists();
}

void Output_list_obj::init_lists()
{
    set_table(aid_table_storage,
              {class_type_attribute<TYPE_OUTPUT_LIST>(), &width, &height, &variable_reference, &value});
    set_table(every_table_storage,
              {&width, &height, &variable_reference, &value, &num_list_items, &num_macros, &child_objects,
               &event_macro});
}

}
}
