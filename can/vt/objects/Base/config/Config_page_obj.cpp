#include "can/vt/objects/Base/config/Config_page_obj.h"

namespace VT {
namespace Base {

Config_page_obj::Config_page_obj(uint16_t id, const char* name, uint8_t extended_type_, uint16_t label_,
                                 uint16_t icon_, uint8_t options_, uint16_t title_, uint16_t help_, uint16_t diagram_,
                                 uint8_t num_child_objects_, uint8_t num_macros_, Attribute_object_id* children,
                                 Attribute_event_macro* macros)
    : VT_obj(id, TYPE_CONFIG, 8, aid_table_storage, 11, every_table_storage, 0, &event_macro, name),
      extended_type(EXTENDED_TYPE, EXTENDED_TYPE, extended_type_, "extended_type"), label(label_, "label"),
      icon(icon_, "icon"), options(0, 7, options_, "options"), title(title_, "title"), help(help_, "help"),
      diagram(diagram_, "diagram"), child_objects("child_objects", children, num_child_objects_),
      event_macro("event_macro", macros, num_macros_)
{
    init_lists();
}

Config_page_obj::Config_page_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_CONFIG, 8, aid_table_storage, 11, every_table_storage, NO_NAME, NULL_ID),
      extended_type(EXTENDED_TYPE, EXTENDED_TYPE, EXTENDED_TYPE, "extended_type"), label(NULL_ID, "label"),
      icon(NULL_ID, "icon"), options(0, 7, 0, "options"), title(NULL_ID, "title"), help(NULL_ID, "help"),
      diagram(NULL_ID, "diagram"), child_objects("child_objects"), event_macro("event_macro")
{
    init_lists();
}

void Config_page_obj::init_lists()
{
    set_table(aid_table_storage,
              {class_type_attribute<TYPE_CONFIG>(), &extended_type, &label, &icon, &options, &title, &help, &diagram});
    set_table(every_table_storage, {&extended_type, &label, &icon, &options, &title, &help, &diagram,
                                    &num_child_objects, &num_macros, &child_objects, &event_macro});
}

}
}
