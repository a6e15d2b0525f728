#ifndef CAN_VT_OBJECTS_BASE_GRAPH_METER_OBJ_H
#define CAN_VT_OBJECTS_BASE_GRAPH_METER_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// Meter (type 17): a needle over an arc; it has a width and no height.
class Meter_obj : public VT_obj
{
public:
    // Copies num_macros entries of `macros`.
    Meter_obj(uint16_t id, const char* name, unsigned short width, unsigned char needle_colour,
              unsigned char border_colour, unsigned char arc_and_tick_colour, unsigned char options,
              unsigned char no_ticks, unsigned char start_angle, unsigned char end_angle, unsigned short min_value,
              unsigned short max_value, unsigned short variable_reference, unsigned short value,
              unsigned char num_macros, Attribute_event_macro* macros);
    explicit Meter_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_METER; }

    VT_ATTRIBUTE_GETTER(uint16_t, width)
    VT_ATTRIBUTE_GETTER(uint8_t, needle_colour)
    VT_ATTRIBUTE_GETTER(uint8_t, border_colour)
    VT_ATTRIBUTE_GETTER(uint8_t, arc_and_tick_colour)
    VT_ATTRIBUTE_GETTER(uint8_t, options)
    VT_ATTRIBUTE_GETTER(uint8_t, no_ticks)
    VT_ATTRIBUTE_GETTER(uint8_t, start_angle)
    VT_ATTRIBUTE_GETTER(uint8_t, end_angle)
    VT_ATTRIBUTE_GETTER(uint16_t, min_value)
    VT_ATTRIBUTE_GETTER(uint16_t, max_value)
    VT_ATTRIBUTE_GETTER(uint16_t, variable_reference)
    VT_ATTRIBUTE_GETTER(uint16_t, value)
    VT_ATTRIBUTE_GETTER(uint8_t, num_macros)
    VT_EVENT_MACRO_GETTERS(event_macro)

private:
    void init_lists();

    Attribute_uint16 width;
    Attribute_colour needle_colour;
    Attribute_colour border_colour;
    Attribute_colour arc_and_tick_colour;
    Attribute_uint8 options;
    Attribute_uint8 no_ticks;
    Attribute_uint8 start_angle;
    Attribute_uint8 end_angle;
    Attribute_uint16 min_value;
    Attribute_uint16 max_value;
    Attribute_object_id variable_reference;
    Attribute_uint16 value;
    Attribute_list_len<uint8_t> num_macros;
    Attribute_list<Attribute_event_macro> event_macro;
    Attribute* aid_table_storage[13 + 1];
    Attribute* every_table_storage[14 + 1];
};

}
}

#endif
