#include "can/vt/objects/Base/graph/Arched_bar_graph_obj.h"

namespace VT {
namespace Base {

Arched_bar_graph_obj::Arched_bar_graph_obj(uint16_t id, const char* name, unsigned short width_v,
                                           unsigned short height_v, unsigned char fill_colour_v,
                                           unsigned char target_line_colour_v, unsigned char options_v,
                                           unsigned char start_angle_v, unsigned char end_angle_v,
                                           unsigned short bar_graph_width_v, unsigned short min_value_v,
                                           unsigned short max_value_v, unsigned short variable_reference_v,
                                           unsigned short value_v, unsigned short target_value_reference_v,
                                           unsigned short target_value_v, unsigned char num_macros_v,
                                           Attribute_event_macro* macros)
    : VT_obj(id, TYPE_ARCHED_BAR_GRAPH, 15, aid_table_storage, 16, every_table_storage, 0, &event_macro, name),
      width(0, 65535, width_v, "width"), height(0, 65535, height_v, "height"),
      fill_colour(fill_colour_v, "fill_colour"), target_line_colour(target_line_colour_v, "target_line_colour"),
      options(0, 31, options_v, "options"), start_angle(0, 180, start_angle_v, "start_angle"),
      end_angle(0, 180, end_angle_v, "end_angle"), bar_graph_width(0, 65535, bar_graph_width_v, "bar_graph_width"),
      min_value(0, 65535, min_value_v, "min_value"), max_value(0, 65535, max_value_v, "max_value"),
      variable_reference(variable_reference_v, "variable_reference"), value(0, 65535, value_v, "value"),
      target_value_reference(target_value_reference_v, "target_value_reference"),
      target_value(0, 65535, target_value_v, "target_value"), num_macros("num_macros", &event_macro),
      event_macro("event_macro", macros, num_macros_v)
{
    init_lists();
}

Arched_bar_graph_obj::Arched_bar_graph_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_ARCHED_BAR_GRAPH, 15, aid_table_storage, 16, every_table_storage, NO_NAME, NULL_ID),
      width(0, 65535, 0, "width"), height(0, 65535, 0, "height"), fill_colour(0, "fill_colour"),
      target_line_colour(0, "target_line_colour"), options(0, 31, 0, "options"),
      start_angle(0, 180, 0, "start_angle"), end_angle(0, 180, 0, "end_angle"),
      bar_graph_width(0, 65535, 0, "bar_graph_width"), min_value(0, 65535, 0, "min_value"),
      max_value(0, 65535, 0, "max_value"), variable_reference(65535, "variable_reference"),
      value(0, 65535, 0, "value"), target_value_reference(65535, "target_value_reference"),
      target_value(0, 65535, 0, "target_value"), num_macros("num_macros", &event_macro), event_macro("event_macro")
{
    init_lists();
}

void Arched_bar_graph_obj::init_lists()
{
    set_table(aid_table_storage,
              {class_type_attribute<TYPE_ARCHED_BAR_GRAPH>(), &width, &height, &fill_colour, &target_line_colour,
               &options, &start_angle, &end_angle, &bar_graph_width, &min_value, &max_value, &variable_reference,
               &value, &target_value_reference, &target_value});
    set_table(every_table_storage,
              {&width, &height, &fill_colour, &target_line_colour, &options, &start_angle, &end_angle,
               &bar_graph_width, &min_value, &max_value, &variable_reference, &value, &target_value_reference,
               &target_value, &num_macros, &event_macro});
}

}
}
