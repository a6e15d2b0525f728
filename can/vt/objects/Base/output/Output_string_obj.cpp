#include "can/vt/objects/Base/output/Output_string_obj.h"

#include <string>

namespace VT {
namespace Base {

Output_string_obj::Output_string_obj(uint16_t id, const char* name, unsigned short width_v, unsigned short height_v,
                                     unsigned char background_colour_v, unsigned short font_attributes_v,
                                     unsigned char options_v, unsigned short variable_reference_v,
                                     unsigned char horizontal_justification_v, unsigned short length_v,
                                     char* string_v, unsigned char num_macros_v, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_OUTPUT_STRING, 8, aid_table_storage, 11, every_table_storage, 0, &event_macro, name),
      width(0, 65535, width_v, "width"), height(0, 65535, height_v, "height"),
      background_colour(background_colour_v, "background_colour"),
      font_attributes(font_attributes_v, "font_attributes"), options(0, 7, options_v, "options"),
      variable_reference(variable_reference_v, "variable_reference"),
      horizontal_justification(0, 15, horizontal_justification_v, "horizontal_justification"),
      length("length", &string), string(string_v, length_v, "string"), num_macros("num_macros", &event_macro),
      event_macro("event_macro", macros, num_macros_v)
{
    init_lists();
}

Output_string_obj::Output_string_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_OUTPUT_STRING, 8, aid_table_storage, 11, every_table_storage, NO_NAME, NULL_ID),
      width(0, 65535, 0, "width"), height(0, 65535, 0, "height"), background_colour(0, "background_colour"),
      font_attributes(65535, "font_attributes"), options(0, 7, 0, "options"),
      variable_reference(65535, "variable_reference"), horizontal_justification(0, 15, 0, "horizontal_justification"),
      length("length", &string), string("string"), num_macros("num_macros", &event_macro), event_macro("event_macro")
{
    init_lists();
}

void Output_string_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_OUTPUT_STRING>(), &width, &height, &background_colour,
                                  &font_attributes, &options, &variable_reference, &horizontal_justification});
    set_table(every_table_storage, {&width, &height, &background_colour, &font_attributes, &options,
                                    &variable_reference, &horizontal_justification, &length, &string, &num_macros,
                                    &event_macro});
}

void Output_string_obj::_get_string(String_base& dst) const
{
    __check_locked();
    // Only the characters the array really holds are handed on.
    std::string text;
    char chunk[256];
    for (unsigned got; (got = string.get_elements(unsigned(text.size()), chunk, sizeof chunk)) > 0;)
        text.append(chunk, got);
    dst.set(text.data(), unsigned(text.size()));
}

}
}
