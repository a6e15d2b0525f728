#ifndef CAN_VT_OBJECTS_BASE_ATTRIBUTE_LINE_ATTRIBUTES_OBJ_H
#define CAN_VT_OBJECTS_BASE_ATTRIBUTE_LINE_ATTRIBUTES_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Line attributes (type 24): colour, width and dash pattern of the lines of the objects that
// refer to it. The width scales with the objects that use it.
class Line_attributes_obj : public VT_obj
{
    Attribute_colour line_colour{0, "line_colour"};
    Attribute_uint8 line_width{0, 255, 0, "line_width"};
    Attribute_uint16 line_art{0, 65535, 0, "line_art"};
    Attribute_list_len<unsigned char> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    Line_attributes_obj(unsigned short id, const char* name, unsigned char line_colour, unsigned char line_width,
                        unsigned short line_art, unsigned char num_macros, Attribute_event_macro* event_macro);
    explicit Line_attributes_obj(Spec_node* node) : VT_obj(node, TYPE_LINE_ATTRIBUTES, tables) { init_lists(); }

    // The line width follows the vertical factor.
    void __set_scale(uint16_t x_mul, uint16_t y_mul, uint16_t x_div, uint16_t y_div) override;
    // A line of width 0 is not drawn, so it does not matter which area scales it: it may be
    // shared by the soft-key area and the active area without a warning.
    void check_scale_area(scale_area_t area) override;

    VT_ATTRIBUTE_GETTERS(line_colour, line_width, line_art, num_macros)
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_LINE_ATTRIBUTES, (line_colour, line_width, line_art),
                     (line_colour, line_width, line_art, num_macros, event_macro))
};

}

#endif
