#ifndef CAN_VT_OBJECTS_BASE_GRAPH_METER_OBJ_H
#define CAN_VT_OBJECTS_BASE_GRAPH_METER_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Meter (type 17): a needle over an arc; it has a width and no height.
class Meter_obj : public VT_obj
{
    Attribute_uint16 width{0, 65535, 0, "width"};
    Attribute_colour needle_colour{0, "needle_colour"};
    Attribute_colour border_colour{0, "border_colour"};
    Attribute_colour arc_and_tick_colour{0, "arc_and_tick_colour"};
    Attribute_uint8 options{0, 15, 0, "options"};
    Attribute_uint8 no_ticks{0, 255, 0, "no_ticks"};
    Attribute_uint8 start_angle{0, 180, 0, "start_angle"};
    Attribute_uint8 end_angle{0, 180, 0, "end_angle"};
    Attribute_uint16 min_value{0, 65535, 0, "min_value"};
    Attribute_uint16 max_value{0, 65535, 0, "max_value"};
    Attribute_object_id variable_reference{65535, "variable_reference"};
    Attribute_uint16 value{0, 65535, 0, "value"};
    Attribute_list_len<uint8_t> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    // Copies num_macros entries of `macros`.
    Meter_obj(uint16_t id, const char* name, unsigned short width, unsigned char needle_colour,
              unsigned char border_colour, unsigned char arc_and_tick_colour, unsigned char options,
              unsigned char no_ticks, unsigned char start_angle, unsigned char end_angle, unsigned short min_value,
              unsigned short max_value, unsigned short variable_reference, unsigned short value,
              unsigned char num_macros, Attribute_event_macro* macros);
    explicit Meter_obj(Spec_node* node) : VT_obj(node, TYPE_METER, tables) { init_lists(); }

    VT_ATTRIBUTE_GETTERS(width, needle_colour, border_colour, arc_and_tick_colour, options, no_ticks, start_angle,
                         end_angle, min_value, max_value, variable_reference, value, num_macros)
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_METER,
                     (width, needle_colour, border_colour, arc_and_tick_colour, options, no_ticks, start_angle,
                      end_angle, min_value, max_value, variable_reference, value),
                     (width, needle_colour, border_colour, arc_and_tick_colour, options, no_ticks, start_angle,
                      end_angle, min_value, max_value, variable_reference, value, num_macros, event_macro))
};

}

#endif
