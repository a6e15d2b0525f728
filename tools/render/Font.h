#ifndef TOOLS_RENDER_FONT_H
#define TOOLS_RENDER_FONT_H

#include <cstddef>
#include <cstdint>

namespace VT {

struct Terminal;

namespace Render {

// One base size of the bundled bitmap fonts: `width` x `height` pixel glyphs, each stored as
// `height` rows of `row_bytes` bytes, leftmost pixel in the high bit (see font/Glyphs.cpp).
struct Glyph_set
{
    uint8_t width, height, row_bytes;
    const uint8_t* bits;

    const uint8_t* glyph(uint16_t index) const { return bits + size_t(index) * height * row_bytes; }
};

enum { GLYPH_SET_COUNT = 5 };
extern const Glyph_set glyph_sets[GLYPH_SET_COUNT];
const uint16_t NO_GLYPH = 0xFFFF;
// For font type `font_type`, the glyph of each byte (NO_GLYPH for control codes); types
// without a code page of their own read as ISO 8859-1.
const uint16_t* code_page(uint8_t font_type);

// Font styles (bits of a font attributes object's style).
enum Font_style : uint8_t {
    STYLE_BOLD = 0x01,
    STYLE_CROSSED_OUT = 0x02,
    STYLE_UNDERLINED = 0x04,
    STYLE_ITALIC = 0x08,
    STYLE_INVERTED = 0x10,
};

// A font size as drawn: the character cell, and which base glyphs fill it at what enlargement.
// The glyphs sit in the middle of the cell.
struct Font_metrics
{
    uint8_t cell_width, cell_height;
    uint8_t glyph_set; // index into glyph_sets
    uint8_t scale_x, scale_y;
};

// Font size 0 (6x8) to 14 (128x192); larger values count as 0.
const Font_metrics& font_metrics(uint8_t size);

// The fixed font size a terminal draws a font of this size and style in: the nearest size it
// has (Font_sizes::supported); a proportional font in the cells of the fixed size of its height.
uint8_t terminal_font_size(uint8_t size, uint8_t style, const Terminal& terminal);

// Everything needed to draw text in one font.
struct Font
{
    Font_metrics metrics;
    uint32_t colour;  // 0xFFRRGGBB
    uint8_t type;     // code page
    uint8_t style;    // Font_style bits the terminal supports
};

}
}

#endif
