#ifndef CAN_VT_OBJECTS_BASE_GRAPH_LINEAR_BAR_GRAPH_OBJ_H
#define CAN_VT_OBJECTS_BASE_GRAPH_LINEAR_BAR_GRAPH_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// Linear bar graph (type 18): a bar with an optional target line.
class Linear_bar_graph_obj : public VT_obj
{
public:
    // Copies num_macros entries of `macros`.
    Linear_bar_graph_obj(uint16_t id, const char* name, unsigned short width, unsigned short height,
                         unsigned char fill_colour, unsigned char target_line_colour, unsigned char options,
                         unsigned char no_ticks, unsigned short min_value, unsigned short max_value,
                         unsigned short variable_reference, unsigned short value,
                         unsigned short target_variable_reference, unsigned short target_value,
                         unsigned char num_macros, Attribute_event_macro* macros);
    explicit Linear_bar_graph_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_LINEAR_BAR_GRAPH; }

    VT_ATTRIBUTE_GETTER(uint16_t, width)
    VT_ATTRIBUTE_GETTER(uint16_t, height)
    VT_ATTRIBUTE_GETTER(uint8_t, fill_colour)
    VT_ATTRIBUTE_GETTER(uint8_t, target_line_colour)
    VT_ATTRIBUTE_GETTER(uint8_t, options)
    VT_ATTRIBUTE_GETTER(uint8_t, no_ticks)
    VT_ATTRIBUTE_GETTER(uint16_t, min_value)
    VT_ATTRIBUTE_GETTER(uint16_t, max_value)
    VT_ATTRIBUTE_GETTER(uint16_t, variable_reference)
    VT_ATTRIBUTE_GETTER(uint16_t, value)
    VT_ATTRIBUTE_GETTER(uint16_t, target_variable_reference)
    VT_ATTRIBUTE_GETTER(uint16_t, target_value)
    VT_ATTRIBUTE_GETTER(uint8_t, num_macros)
    VT_EVENT_MACRO_GETTERS(event_macro)

private:
    void init_lists();

    Attribute_uint16 width;
    Attribute_uint16 height;
    Attribute_colour fill_colour;
    Attribute_colour target_line_colour;
    Attribute_uint8 options;
    Attribute_uint8 no_ticks;
    Attribute_uint16 min_value;
    Attribute_uint16 max_value;
    Attribute_object_id variable_reference;
    Attribute_uint16 value;
    Attribute_object_id target_variable_reference;
    Attribute_uint16 target_value;
    Attribute_list_len<uint8_t> num_macros;
    Attribute_list<Attribute_event_macro> event_macro;
    Attribute* aid_table_storage[13 + 1];
    Attribute* every_table_storage[14 + 1];
};

}
}

#endif
