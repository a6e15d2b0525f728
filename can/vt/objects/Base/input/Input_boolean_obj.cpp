#include "can/vt/objects/Base/input/Input_boolean_obj.h"

namespace VT::Base {

Input_boolean_obj::Input_boolean_obj(uint16_t id, const char* name, unsigned char background_colour_v,
                                     unsigned short width_v, unsigned short foreground_colour_v,
                                     unsigned short variable_reference_v, unsigned char value_v,
                                     unsigned char enabled_v, unsigned char num_macros_v, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_INPUT_BOOLEAN, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), background_colour_v, width_v, foreground_colour_v, variable_reference_v, value_v,
               enabled_v, num_macros_v, macros);
    init_lists();
}

}
