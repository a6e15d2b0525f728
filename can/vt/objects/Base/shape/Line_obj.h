#ifndef CAN_VT_OBJECTS_BASE_SHAPE_LINE_OBJ_H
#define CAN_VT_OBJECTS_BASE_SHAPE_LINE_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Output line (type 13): a line across its box, from top left to bottom right (direction 0)
// or from bottom left to top right (1).
class Line_obj : public VT_obj
{
    Attribute_object_id line_attributes{65535, "line_attributes"};
    Attribute_uint16 width{0, 65535, 0, "width"};
    Attribute_uint16 height{0, 65535, 0, "height"};
    Attribute_uint8 line_direction{0, 1, 0, "line_direction"};
    Attribute_list_len<unsigned char> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    Line_obj(unsigned short id, const char* name, unsigned short line_attributes, unsigned short width,
             unsigned short height, unsigned char line_direction, unsigned char num_macros,
             Attribute_event_macro* event_macro);
    explicit Line_obj(Spec_node* node) : VT_obj(node, TYPE_LINE, tables) { init_lists(); }

    // A line cannot be drawn without line attributes: a pool that leaves them out is refused.
    bool __set_by_spec(scale_area_t area) override;
    // Scaling a line reaches its line width.
    uint16_t __get_scaling_child() const override { return line_attributes; }
    VT_SIZE_FROM_ATTRIBUTES

    VT_ATTRIBUTE_GETTERS(line_attributes, line_direction, num_macros)
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_LINE, (line_attributes, width, height, line_direction),
                     (line_attributes, width, height, line_direction, num_macros, event_macro))
};

}

#endif
