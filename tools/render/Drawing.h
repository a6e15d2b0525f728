#ifndef TOOLS_RENDER_DRAWING_H
#define TOOLS_RENDER_DRAWING_H

// What the parts of the renderer share (Renderer.cpp: masks, keys, containers and buttons;
// Renderer_fields.cpp: input and output fields; Renderer_graphics.cpp: shapes, meters, graphs and
// pictures): the bounds on the work of one drawing, option bits, and angle arithmetic.

#include <algorithm>
#include <string>

#include "tools/render/Canvas.h"
#include "vt_core.h"

namespace VT {
namespace Render {
namespace Drawing {

const uint16_t NULL_ID = 65535;
// Bounds on the work one drawing may take, whatever the pool asks for.
const int MAX_DEPTH = 32;
const int MAX_DRAWS = 20000;
const uint64_t PIXELS_PER_CANVAS_PIXEL = 64;
const uint64_t MIN_PIXEL_BUDGET = 4u << 20;
// Pictures of more pixels are not decoded (4096 x 4096).
const uint64_t MAX_PICTURE_PIXELS = 1u << 24;
// Marks the pixels of a shape that is filled with a pattern; no drawn pixel is transparent.
const uint32_t PATTERN_MARK = 0x00FF00FFu;

// Option bits.
const uint8_t TRANSPARENT_BACKGROUND = 0x01; // output and input fields
const uint8_t AUTO_WRAP = 0x02;
const uint8_t WRAP_ON_HYPHEN = 0x04;
const uint8_t BUTTON_LATCHED = 0x02;  // with latchable (0x01)
const uint8_t BUTTON_SUPPRESS_BORDER = 0x04;
const uint8_t BUTTON_TRANSPARENT = 0x08;
const uint8_t BUTTON_NO_BORDER = 0x20;
const int BUTTON_BORDER = 4;

template <class T>
inline T* as(VT_obj* obj)
{
    return dynamic_cast<T*>(obj);
}

// Angle in our units from a 2-degree attribute value.
inline int attribute_angle(uint8_t value)
{
    return int(value) * 2 * DEGREE;
}

// The sweep from `start` to `end` (2-degree units) in the given direction: its first angle
// anticlockwise and its span; equal ends sweep the whole circle.
inline Arc sweep(uint8_t start, uint8_t end, bool clockwise)
{
    const int full = 360 * DEGREE;
    const int s = attribute_angle(start), e = attribute_angle(end);
    int span = ((clockwise ? s - e : e - s) % full + full) % full;
    if (span == 0)
        span = full;
    return Arc{clockwise ? s - span : s, span};
}

// How far along [min, max] `value` lies, in 1/65536.
inline int64_t fraction(int64_t value, int64_t min, int64_t max)
{
    if (max <= min)
        return 0;
    value = std::max(min, std::min(max, value));
    return (value - min) * 65536 / (max - min);
}

// The angle `part` (1/65536) of the way along a sweep drawn from `start`.
inline int sweep_angle(const Arc& arc, bool clockwise, int64_t part)
{
    const int offset = int(int64_t(arc.span) * part / 65536);
    return clockwise ? arc.start + arc.span - offset : arc.start + offset;
}

inline std::string variable_text(VT_obj* variable)
{
    auto* v = as<Base::String_variable_obj>(variable);
    if (!v)
        return std::string();
    std::string s(v->get_length(), '\0');
    if (!s.empty())
        v->get_string(0, &s[0], unsigned(s.size()));
    return s;
}

}
}
}

#endif
