#ifndef CAN_VT_OBJECTS_BASE_GRAPH_LINEAR_BAR_GRAPH_OBJ_H
#define CAN_VT_OBJECTS_BASE_GRAPH_LINEAR_BAR_GRAPH_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Linear bar graph (type 18): a bar with an optional target line.
class Linear_bar_graph_obj : public VT_obj
{
    Attribute_uint16 width{0, 65535, 0, "width"};
    Attribute_uint16 height{0, 65535, 0, "height"};
    Attribute_colour fill_colour{0, "fill_colour"};
    Attribute_colour target_line_colour{0, "target_line_colour"};
    Attribute_uint8 options{0, 63, 0, "options"};
    Attribute_uint8 no_ticks{0, 255, 0, "no_ticks"};
    Attribute_uint16 min_value{0, 65535, 0, "min_value"};
    Attribute_uint16 max_value{0, 65535, 0, "max_value"};
    Attribute_object_id variable_reference{65535, "variable_reference"};
    Attribute_uint16 value{0, 65535, 0, "value"};
    Attribute_object_id target_variable_reference{65535, "target_variable_reference"};
    Attribute_uint16 target_value{0, 65535, 0, "target_value"};
    Attribute_list_len<uint8_t> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    // Copies num_macros entries of `macros`.
    Linear_bar_graph_obj(uint16_t id, const char* name, unsigned short width, unsigned short height,
                         unsigned char fill_colour, unsigned char target_line_colour, unsigned char options,
                         unsigned char no_ticks, unsigned short min_value, unsigned short max_value,
                         unsigned short variable_reference, unsigned short value,
                         unsigned short target_variable_reference, unsigned short target_value,
                         unsigned char num_macros, Attribute_event_macro* macros);
    explicit Linear_bar_graph_obj(Spec_node* node) : VT_obj(node, TYPE_LINEAR_BAR_GRAPH, tables) { init_lists(); }

    VT_ATTRIBUTE_GETTERS(width, height, fill_colour, target_line_colour, options, no_ticks, min_value, max_value,
                         variable_reference, value, target_variable_reference, target_value, num_macros)
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_LINEAR_BAR_GRAPH,
                     (width, height, fill_colour, target_line_colour, options, no_ticks, min_value, max_value,
                      variable_reference, value, target_variable_reference, target_value),
                     (width, height, fill_colour, target_line_colour, options, no_ticks, min_value, max_value,
                      variable_reference, value, target_variable_reference, target_value, num_macros, event_macro))
};

}

#endif
