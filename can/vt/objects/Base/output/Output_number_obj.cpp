#include "can/vt/objects/Base/output/Output_number_obj.h"

namespace VT::Base {

Output_number_obj::Output_number_obj(uint16_t id, const char* name, unsigned short width_v, unsigned short height_v,
                                     unsigned char background_colour_v, unsigned short font_attributes_v,
                                     unsigned char options_v, unsigned short variable_reference_v, unsigned int value_v,
                                     int offset_v, float scale_v, unsigned char no_decimals_v, unsigned char format_v,
                                     unsigned char horizontal_justification_v, unsigned char num_macros_v,
                                     Attribute_event_macro* macros)
    : VT_obj(id, TYPE_OUTPUT_NUMBER, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), width_v, height_v, background_colour_v, font_attributes_v, options_v,
               variable_reference_v, value_v, offset_v, scale_v, no_decimals_v, format_v, horizontal_justification_v,
               num_macros_v, macros);
    init_lists();
}

}
