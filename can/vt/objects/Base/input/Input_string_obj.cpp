#include "can/vt/objects/Base/input/Input_string_obj.h"

namespace VT::Base {

Input_string_obj::Input_string_obj(uint16_t id, const char* name, unsigned short width_v, unsigned short height_v,
                                   unsigned char background_colour_v, unsigned short font_attributes_v,
                                   unsigned short input_attributes_v, unsigned char options_v,
                                   unsigned short variable_reference_v, unsigned char horizontal_justification_v,
                                   unsigned char length_v, char* string_v, unsigned char enabled_v,
                                   unsigned char num_macros_v, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_INPUT_STRING, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), width_v, height_v, background_colour_v, font_attributes_v, input_attributes_v,
               options_v, variable_reference_v, horizontal_justification_v, length_v, string_v, enabled_v, num_macros_v,
               macros);
    init_lists();
}

}
