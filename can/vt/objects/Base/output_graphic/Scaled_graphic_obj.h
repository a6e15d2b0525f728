#ifndef CAN_VT_OBJECTS_BASE_OUTPUT_GRAPHIC_SCALED_GRAPHIC_OBJ_H
#define CAN_VT_OBJECTS_BASE_OUTPUT_GRAPHIC_SCALED_GRAPHIC_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Scaled graphic (type 48, VT version 6): shows the image of a graphic data object in a box of
// its own size, scaled as its scale type says and placed in the box by its justification.
class Scaled_graphic_obj : public VT_obj
{
    Attribute_uint16 width{0, 65535, 0, "width"};
    Attribute_uint16 height{0, 65535, 0, "height"};
    // Bits 0-2 the scaling (SCALE_*), bits 3-4 horizontal and 5-6 vertical placement in the box
    // (0 left/top, 1 middle, 2 right/bottom); bit 7 and the values 5-7 and 3 are reserved.
    Attribute_uint8 scale_type{0, 127, 0, "scale_type"};
    Attribute_uint8 options{0, 1, 0, "options"};
    Attribute_object_id value{65535, "value"};
    Attribute_list_len<uint8_t> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    VT_OWN_TYPE_NAME("Scaled_graphic")
    enum {
        SCALE_NONE = 0,       // the image's own size
        SCALE_TO_WIDTH = 1,   // the box's width, the height keeping the aspect ratio
        SCALE_TO_HEIGHT = 2,  // the box's height, the width keeping the aspect ratio
        SCALE_STRETCH = 3,    // the box's width and height
        SCALE_FIT = 4,        // the largest size within the box keeping the aspect ratio
    };
    enum { OPTION_FLASHING = 1 };

    Scaled_graphic_obj(uint16_t id, const char* name, uint16_t width, uint16_t height, uint8_t scale_type,
                       uint8_t options, uint16_t value, uint8_t num_macros, Attribute_event_macro* macros);
    explicit Scaled_graphic_obj(Spec_node* node) : VT_obj(node, TYPE_SCALED_GRAPHIC, tables) { init_lists(); }

    VT_ATTRIBUTE_GETTERS(scale_type, options, value, num_macros)
    VT_SIZE_FROM_ATTRIBUTES
    VT_EVENT_MACRO_GETTERS(event_macro)

    // The image's size in the box for an image of iw x ih pixels, and where it stands in it.
    struct Placement
    {
        int x, y, width, height;
    };
    Placement _place(int iw, int ih) const;

    VT_OBJECT_TABLES(TYPE_SCALED_GRAPHIC, (width, height, scale_type, options, value),
                     (width, height, scale_type, options, value, num_macros, event_macro))
};

}

#endif
