#include "can/vt/objects/Base/graph/Meter_obj.h"

namespace VT::Base {

Meter_obj::Meter_obj(uint16_t id, const char* name, unsigned short width_v, unsigned char needle_colour_v,
                     unsigned char border_colour_v, unsigned char arc_and_tick_colour_v, unsigned char options_v,
                     unsigned char no_ticks_v, unsigned char start_angle_v, unsigned char end_angle_v,
                     unsigned short min_value_v, unsigned short max_value_v, unsigned short variable_reference_v,
                     unsigned short value_v, unsigned char num_macros_v, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_METER, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), width_v, needle_colour_v, border_colour_v, arc_and_tick_colour_v, options_v,
               no_ticks_v, start_angle_v, end_angle_v, min_value_v, max_value_v, variable_reference_v, value_v,
               num_macros_v, macros);
    init_lists();
}

}
