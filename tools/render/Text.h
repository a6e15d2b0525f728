#ifndef TOOLS_RENDER_TEXT_H
#define TOOLS_RENDER_TEXT_H

#include <cstdint>
#include <string>
#include <vector>

#include "tools/render/Canvas.h"
#include "tools/render/Font.h"

namespace VT {
namespace Render {

// How a field lays its text out: justification bits 0-1 horizontal (0 left, 1 middle,
// 2 right), bits 2-3 vertical (0 top, 1 middle, 2 bottom); wrapping at spaces (and after
// hyphens) when the text is wider than the field.
struct Text_layout
{
    uint8_t justification = 0;
    bool wrap = false;
    bool wrap_on_hyphen = false;
};

// The lines of `text` in a field `columns` characters wide. Line ends (CR, LF, CR LF, LF CR)
// always start a new line; with wrapping, a line that would be too wide breaks at its last space
// (dropped) or hyphen (kept), or, without one, after `columns` characters.
std::vector<std::string> text_lines(const std::string& text, int columns, const Text_layout& layout);

// Draws `text` in `font` into the field `field`, clipped to it and to the canvas's clip.
// `background` is the field's colour, which inverted text is drawn in.
void draw_text(Canvas& canvas, const Rect& field, const std::string& text, const Font& font,
               const Text_layout& layout, uint32_t background);

// A number as an output or input number shows it: (value + offset) * scale with `decimals`
// decimals in fixed (format 0) or exponential (format 1) notation. Option bits: 1 leading zeros
// (to `columns` characters), 2 blank when the shown value is zero, 3 truncate instead of round.
struct Number_format
{
    uint32_t value = 0;
    int32_t offset = 0;
    float scale = 1.0f;
    uint8_t decimals = 0;
    uint8_t format = 0;
    uint8_t options = 0;
    int columns = 0;
};
std::string format_number(const Number_format& n);

}
}

#endif
