#include "can/vt/objects/Base/config/Config_icon_obj.h"

namespace VT {
namespace Base {

Config_icon_obj::Config_icon_obj(uint16_t id, const char* name, uint8_t extended_type_, uint8_t num_objects_,
                                 uint8_t num_macros_, Attribute_object_placement* objects,
                                 Attribute_event_macro* macros)
    : VT_obj(id, TYPE_CONFIG, 2, aid_table_storage, 5, every_table_storage, 0, &event_macro, name),
      extended_type(EXTENDED_TYPE, EXTENDED_TYPE, extended_type_, "extended_type"),
      child_location("child_location", objects, num_objects_), event_macro("event_macro", macros, num_macros_)
{
    init_lists();
}

Config_icon_obj::Config_icon_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_CONFIG, 2, aid_table_storage, 5, every_table_storage, NO_NAME, NULL_ID),
      extended_type(EXTENDED_TYPE, EXTENDED_TYPE, EXTENDED_TYPE, "extended_type"), child_location("child_location"),
      event_macro("event_macro")
{
    init_lists();
}

void Config_icon_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_CONFIG>(), &extended_type});
    set_table(every_table_storage, {&extended_type, &num_objects, &num_macros, &child_location, &event_macro});
}

}
}
