#include "can/vt/objects/Base/graph/Meter_obj.h"

namespace VT {
namespace Base {

Meter_obj::Meter_obj(uint16_t id, const char* name, unsigned short width_v, unsigned char needle_colour_v,
                     unsigned char border_colour_v, unsigned char arc_and_tick_colour_v, unsigned char options_v,
                     unsigned char no_ticks_v, unsigned char start_angle_v, unsigned char end_angle_v,
                     unsigned short min_value_v, unsigned short max_value_v, unsigned short variable_reference_v,
                     unsigned short value_v, unsigned char num_macros_v, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_METER, 13, aid_table_storage, 14, every_table_storage, 0, &event_macro, name),
      width(0, 65535, width_v, "width"), needle_colour(needle_colour_v, "needle_colour"),
      border_colour(border_colour_v, "border_colour"),
      arc_and_tick_colour(arc_and_tick_colour_v, "arc_and_tick_colour"),
      options(0, 15, options_v, "options"), no_ticks(0, 255, no_ticks_v, "no_ticks"),
      start_angle(0, 180, start_angle_v, "start_angle"), end_angle(0, 180, end_angle_v, "end_angle"),
      min_value(0, 65535, min_value_v, "min_value"), max_value(0, 65535, max_value_v, "max_value"),
      variable_reference(variable_reference_v, "variable_reference"), value(0, 65535, value_v, "value"),
      num_macros("num_macros", &event_macro), event_macro("event_macro", macros, num_macros_v)
{
    init_lists();
}

Meter_obj::Meter_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_METER, 13, aid_table_storage, 14, every_table_storage, NO_NAME, NULL_ID),
      width(0, 65535, 0, "width"), needle_colour(0, "needle_colour"), border_colour(0, "border_colour"),
      arc_and_tick_colour(0, "arc_and_tick_colour"), options(0, 15, 0, "options"), no_ticks(0, 255, 0, "no_ticks"),
      start_angle(0, 180, 0, "start_angle"), end_angle(0, 180, 0, "end_angle"), min_value(0, 65535, 0, "min_value"),
      max_value(0, 65535, 0, "max_value"), variable_reference(65535, "variable_reference"),
      value(0, 65535, 0, "value"), num_macros("num_macros", &event_macro), event_macro("event_macro")
{
    init_lists();
}

void Meter_obj::init_lists()
{
    set_table(aid_table_storage,
              {class_type_attribute<TYPE_METER>(), &width, &needle_colour, &border_colour, &arc_and_tick_colour,
               &options, &no_ticks, &start_angle, &end_angle, &min_value, &max_value, &variable_reference, &value});
    set_table(every_table_storage,
              {&width, &needle_colour, &border_colour, &arc_and_tick_colour, &options, &no_ticks, &start_angle,
               &end_angle, &min_value, &max_value, &variable_reference, &value, &num_macros, &event_macro});
}

}
}
