#include "can/vt/objects/Base/output/Output_string_obj.h"

#include <string>

namespace VT::Base {

Output_string_obj::Output_string_obj(uint16_t id, const char* name, unsigned short width_v, unsigned short height_v,
                                     unsigned char background_colour_v, unsigned short font_attributes_v,
                                     unsigned char options_v, unsigned short variable_reference_v,
                                     unsigned char horizontal_justification_v, unsigned short length_v, char* string_v,
                                     unsigned char num_macros_v, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_OUTPUT_STRING, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), width_v, height_v, background_colour_v, font_attributes_v, options_v,
               variable_reference_v, horizontal_justification_v, length_v, string_v, num_macros_v, macros);
    init_lists();
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
