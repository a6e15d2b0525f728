#include "can/vt/objects/Base/input/Input_string_obj.h"

namespace VT {
namespace Base {

Input_string_obj::Input_string_obj(uint16_t id, const char* name, unsigned short width_v, unsigned short height_v,
                                   unsigned char background_colour_v, unsigned short font_attributes_v,
                                   unsigned short input_attributes_v, unsigned char options_v,
                                   unsigned short variable_reference_v, unsigned char horizontal_justification_v,
                                   unsigned char length_v, char* string_v, unsigned char enabled_v,
                                   unsigned char num_macros_v, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_INPUT_STRING, 10, aid_table_storage, 13, every_table_storage, 0, &event_macro, name),
      width(0, 65535, width_v, "width"), height(0, 65535, height_v, "height"),
      background_colour(background_colour_v, "background_colour"),
      font_attributes(font_attributes_v, "font_attributes"), input_attributes(input_attributes_v, "input_attributes"),
      options(0, 7, options_v, "options"), variable_reference(variable_reference_v, "variable_reference"),
      horizontal_justification(0, 15, horizontal_justification_v, "horizontal_justification"),
      length("length", &string), string(string_v, length_v, "string"), enabled(0, 1, enabled_v, "enabled"),
      num_macros("num_macros", &event_macro), event_macro("event_macro", macros, num_macros_v)
{
    init_lists();
}

Input_string_obj::Input_string_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_INPUT_STRING, 10, aid_table_storage, 13, every_table_storage, NO_NAME, NULL_ID),
      width(0, 65535, 0, "width"), height(0, 65535, 0, "height"), background_colour(0, "background_colour"),
      font_attributes(65535, "font_attributes"), input_attributes(65535, "input_attributes"),
      options(0, 7, 0, "options"), variable_reference(65535, "variable_reference"),
      horizontal_justification(0, 15, 0, "horizontal_justification"), length("length", &string),
      string("string"), enabled(0, 1, 0, "enabled"), num_macros("num_macros", &event_macro),
      event_macro("event_macro")
{
    init_lists();
}

void Input_string_obj::init_lists()
{
    set_table(aid_table_storage,
              {class_type_attribute<TYPE_INPUT_STRING>(), &width, &height, &background_colour, &font_attributes,
               &input_attributes, &options, &variable_reference, &horizontal_justification, &enabled});
    set_table(every_table_storage,
              {&width, &height, &background_colour, &font_attributes, &input_attributes, &options,
               &variable_reference, &horizontal_justification, &length, &string, &enabled, &num_macros,
               &event_macro});
}

}
}
