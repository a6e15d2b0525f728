#include "can/vt/objects/Base/graph/Arched_bar_graph_obj.h"

namespace VT::Base {

Arched_bar_graph_obj::Arched_bar_graph_obj(
    uint16_t id, const char* name, unsigned short width_v, unsigned short height_v, unsigned char fill_colour_v,
    unsigned char target_line_colour_v, unsigned char options_v, unsigned char start_angle_v, unsigned char end_angle_v,
    unsigned short bar_graph_width_v, unsigned short min_value_v, unsigned short max_value_v,
    unsigned short variable_reference_v, unsigned short value_v, unsigned short target_value_reference_v,
    unsigned short target_value_v, unsigned char num_macros_v, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_ARCHED_BAR_GRAPH, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), width_v, height_v, fill_colour_v, target_line_colour_v, options_v, start_angle_v,
               end_angle_v, bar_graph_width_v, min_value_v, max_value_v, variable_reference_v, value_v,
               target_value_reference_v, target_value_v, num_macros_v, macros);
    init_lists();
}

}
