#include "tools/render/Font.h"

#include "tools/terminal/Terminal.h"

namespace VT {
namespace Render {

namespace {

// Glyph sets: 0 = 5x8, 1 = 6x12, 2 = 7x14, 3 = 9x15, 4 = 10x20. Each cell gets the largest
// base glyphs that fit it, doubled (or widened) where the cell is a multiple of a smaller one.
const Font_metrics sizes[FONT_SIZE_COUNT] = {
    {6, 8, 0, 1, 1},       // 6x8
    {8, 8, 0, 1, 1},       // 8x8
    {8, 12, 1, 1, 1},      // 8x12
    {12, 16, 3, 1, 1},     // 12x16
    {16, 16, 2, 2, 1},     // 16x16
    {16, 24, 4, 1, 1},     // 16x24
    {24, 32, 3, 2, 2},     // 24x32
    {32, 32, 2, 4, 2},     // 32x32
    {32, 48, 4, 2, 2},     // 32x48
    {48, 64, 3, 4, 4},     // 48x64
    {64, 64, 2, 8, 4},     // 64x64
    {64, 96, 4, 4, 4},     // 64x96
    {96, 128, 3, 8, 8},    // 96x128
    {128, 128, 2, 16, 8},  // 128x128
    {128, 192, 4, 8, 8},   // 128x192
};

bool has_size(unsigned size, const Terminal& terminal)
{
    if (size == 0)
        return true;
    if (size < 8)
        return terminal.small_fonts >> size & 1;
    return terminal.large_fonts >> (size - 8) & 1;
}

}

const Font_metrics& font_metrics(uint8_t size)
{
    return sizes[size < FONT_SIZE_COUNT ? size : 0];
}

uint8_t terminal_font_size(uint8_t size, const Terminal& terminal)
{
    if (size >= FONT_SIZE_COUNT)
        return 0;
    for (unsigned s = size; s > 0; --s)
        if (has_size(s, terminal))
            return uint8_t(s);
    return 0;
}

}
}
