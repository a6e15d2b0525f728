#ifndef CAN_VT_OBJECTS_SERIALISATION_LIMITS_H
#define CAN_VT_OBJECTS_SERIALISATION_LIMITS_H

#include <cstdint>

namespace VT {

// What the target terminal can show: colour depth and the fonts it reports.
struct Serialisation_limits
{
    uint32_t colour_format = 2;   // format_t: 0 monochrome, 1 sixteen colours, 2 256 colours
    uint8_t small_font_mask = 255; // bits 0..6: font sizes 1..7
    uint8_t large_font_mask = 255; // continues the small-font mask from font size 8
    uint8_t font_style_mask = 255;
};

// Where an object is drawn, for scaling: its area decides the scale factors.
enum scale_area_t { SCALE_AREA_NONE = 0, SCALE_AREA_SOFT_KEY = 1, SCALE_AREA_ACTIVE = 2 };

}

#endif
