#include "can/vt/objects/Base/config/Config_table_obj.h"

namespace VT {
namespace Base {

Config_table_obj::Config_table_obj(uint16_t id, const char* name, uint8_t extended_type_, uint8_t options_,
                                   uint8_t num_rows_, uint8_t num_columns_, uint8_t num_tabs_,
                                   uint8_t num_child_objects_, uint8_t num_macros_, Attribute_object_id* children,
                                   Attribute_event_macro* macros)
    : VT_obj(id, TYPE_CONFIG, 6, aid_table_storage, 9, every_table_storage, 0, &event_macro, name),
      extended_type(EXTENDED_TYPE, EXTENDED_TYPE, extended_type_, "extended_type"), options(0, 7, options_, "options"),
      num_rows(0, 255, num_rows_, "num_rows"), num_columns(0, 255, num_columns_, "num_columns"),
      num_tabs(0, 1, num_tabs_, "num_tabs"), child_objects("child_objects", children, num_child_objects_),
      event_macro("event_macro", macros, num_macros_)
{
    init_lists();
}

Config_table_obj::Config_table_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_CONFIG, 6, aid_table_storage, 9, every_table_storage, NO_NAME, NULL_ID),
      extended_type(EXTENDED_TYPE, EXTENDED_TYPE, EXTENDED_TYPE, "extended_type"), options(0, 7, 0, "options"),
      num_rows(0, 255, 0, "num_rows"), num_columns(0, 255, 0, "num_columns"), num_tabs(0, 1, 0, "num_tabs"),
      child_objects("child_objects"), event_macro("event_macro")
{
    init_lists();
}

void Config_table_obj::init_lists()
{
    set_table(aid_table_storage,
              {class_type_attribute<TYPE_CONFIG>(), &extended_type, &options, &num_rows, &num_columns, &num_tabs});
    set_table(every_table_storage, {&extended_type, &options, &num_rows, &num_columns, &num_tabs, &num_child_objects,
                                    &num_macros, &child_objects, &event_macro});
}

}
}
