#include "can/vt/objects/Base/input/Input_boolean_obj.h"

namespace VT {
namespace Base {

Input_boolean_obj::Input_boolean_obj(uint16_t id, const char* name, unsigned char background_colour_v,
                                     unsigned short width_v, unsigned short foreground_colour_v,
                                     unsigned short variable_reference_v, unsigned char value_v,
                                     unsigned char enabled_v, unsigned char num_macros_v,
                                     Attribute_event_macro* macros)
    : VT_obj(id, TYPE_INPUT_BOOLEAN, 7, aid_table_storage, 8, every_table_storage, 0, &event_macro, name),
      background_colour(background_colour_v, "background_colour"), width(0, 65535, width_v, "width"),
      foreground_colour(foreground_colour_v, "foreground_colour"),
      variable_reference(variable_reference_v, "variable_reference"), value(0, 255, value_v, "value"),
      enabled(0, 1, enabled_v, "enabled"), num_macros("num_macros", &event_macro),
      event_macro("event_macro", macros, num_macros_v)
{
    init_lists();
}

Input_boolean_obj::Input_boolean_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_INPUT_BOOLEAN, 7, aid_table_storage, 8, every_table_storage, NO_NAME, NULL_ID),
      background_colour(0, "background_colour"), width(0, 65535, 0, "width"),
      foreground_colour(65535, "foreground_colour"), variable_reference(65535, "variable_reference"),
      value(0, 255, 0, "value"), enabled(0, 1, 0, "enabled"), num_macros("num_macros", &event_macro),
      event_macro("event_macro")
{
    init_lists();
}

void Input_boolean_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_INPUT_BOOLEAN>(), &background_colour, &width,
                                  &foreground_colour, &variable_reference, &value, &enabled});
    set_table(every_table_storage, {&background_colour, &width, &foreground_colour, &variable_reference, &value,
                                    &enabled, &num_macros, &event_macro});
}

}
}
