#include "can/vt/objects/Base/config/Config_item_obj.h"

namespace VT {
namespace Base {

Config_item_obj::Config_item_obj(uint16_t id, const char* name, uint8_t extended_type_, uint16_t label_,
                                 uint16_t icon_, uint16_t units_, uint16_t help_, uint16_t content_, uint8_t options_,
                                 uint8_t num_macros_, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_CONFIG, 8, aid_table_storage, 9, every_table_storage, 0, &event_macro, name),
      extended_type(EXTENDED_TYPE, EXTENDED_TYPE, extended_type_, "extended_type"), label(label_, "label"),
      icon(icon_, "icon"), units(units_, "units"), help(help_, "help"), content(content_, "content"),
      options(0, 7, options_, "options"), event_macro("event_macro", macros, num_macros_)
{
    init_lists();
}

Config_item_obj::Config_item_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_CONFIG, 8, aid_table_storage, 9, every_table_storage, NO_NAME, NULL_ID),
      extended_type(EXTENDED_TYPE, EXTENDED_TYPE, EXTENDED_TYPE, "extended_type"), label(NULL_ID, "label"),
      icon(NULL_ID, "icon"), units(NULL_ID, "units"), help(NULL_ID, "help"), content(NULL_ID, "content"),
      options(0, 7, 0, "options"), event_macro("event_macro")
{
    init_lists();
}

void Config_item_obj::init_lists()
{
    set_table(aid_table_storage,
              {class_type_attribute<TYPE_CONFIG>(), &extended_type, &label, &icon, &units, &help, &content, &options});
    set_table(every_table_storage,
              {&extended_type, &label, &icon, &units, &help, &content, &options, &num_macros, &event_macro});
}

}
}
