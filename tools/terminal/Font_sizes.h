#ifndef TOOLS_TERMINAL_FONT_SIZES_H
#define TOOLS_TERMINAL_FONT_SIZES_H

#include <cstdint>

#include "tools/terminal/Terminal.h"
#include "vt_core.h"

namespace VT {

// The fixed font sizes of ISO 11783-6 (a font attributes object's size when its style has no
// proportional bit): size 0 is 6x8 ... size 14 is 128x192. Each size's cell is at least as wide
// and as high as the one before, so "larger size" and "larger cell" mean the same.
class Font_sizes
{
public:
    enum { COUNT = 15 };
    // The proportional bit of a font style: the size is then the font's height in pixels, at
    // least MIN_PROPORTIONAL_HEIGHT.
    static const uint8_t STYLE_PROPORTIONAL = Base::Font_attributes_obj::STYLE_PROPORTIONAL;
    static const uint8_t MIN_PROPORTIONAL_HEIGHT = 8;

    struct Cell
    {
        uint8_t width, height;
    };
    // The character cell of a size; sizes above 14 count as 14.
    static Cell cell(uint8_t size);

    // Whether the terminal has a fixed size: small-font bit `size` for sizes 0..7, large-font
    // bit `size` - 8 for sizes 8..14.
    static bool has(const Terminal& terminal, uint8_t size);
    // The largest size whose cell fits in width x height (0 when none does).
    static uint8_t fitting(int width, int height);
    // The largest size whose cell is at most `height` pixels high (0 when none is): the fixed
    // font that stands in for a proportional font of that height.
    static uint8_t for_height(int height);
    // The size the terminal has nearest to `size`: the size itself, else the largest smaller
    // size it has, else the smallest larger one. A terminal without any size gives 0.
    static uint8_t supported(const Terminal& terminal, uint8_t size);
    // Whether the terminal draws proportional fonts: a VT version that has them (the check's
    // table says which; any, when none is named) and the proportional bit among its font styles.
    static bool proportional(const Terminal& terminal);
};

}

#endif
