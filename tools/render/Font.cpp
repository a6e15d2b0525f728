#include "tools/render/Font.h"

#include "tools/terminal/Font_sizes.h"

namespace VT {
namespace Render {

namespace {

// How each size's cell is filled: the glyph set (0 = 5x8, 1 = 6x12, 2 = 7x14, 3 = 9x15,
// 4 = 10x20) and its enlargement. Each cell gets the largest base glyphs that fit it, doubled
// (or widened) where the cell is a multiple of a smaller one.
const uint8_t glyphs[Font_sizes::COUNT][3] = {
    {0, 1, 1}, // 6x8
    {0, 1, 1}, // 8x8
    {1, 1, 1}, // 8x12
    {3, 1, 1}, // 12x16
    {2, 2, 1}, // 16x16
    {4, 1, 1}, // 16x24
    {3, 2, 2}, // 24x32
    {2, 4, 2}, // 32x32
    {4, 2, 2}, // 32x48
    {3, 4, 4}, // 48x64
    {2, 8, 4}, // 64x64
    {4, 4, 4}, // 64x96
    {3, 8, 8}, // 96x128
    {2, 16, 8}, // 128x128
    {4, 8, 8}, // 128x192
};

struct Metrics_table
{
    Font_metrics sizes[Font_sizes::COUNT];
    Metrics_table()
    {
        for (uint8_t s = 0; s < Font_sizes::COUNT; ++s) {
            const Font_sizes::Cell c = Font_sizes::cell(s);
            sizes[s] = {c.width, c.height, glyphs[s][0], glyphs[s][1], glyphs[s][2]};
        }
    }
};

}

const Font_metrics& font_metrics(uint8_t size)
{
    static const Metrics_table table;
    return table.sizes[size < Font_sizes::COUNT ? size : 0];
}

uint8_t terminal_font_size(uint8_t size, uint8_t style, const Terminal& terminal)
{
    // A proportional font is drawn in the cells of the fixed size of its height.
    if (style & Font_sizes::STYLE_PROPORTIONAL)
        size = Font_sizes::for_height(size);
    else if (size >= Font_sizes::COUNT)
        return Font_sizes::supported(terminal, 0);
    return Font_sizes::supported(terminal, size);
}

}
}
