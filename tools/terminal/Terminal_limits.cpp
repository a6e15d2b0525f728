#include "tools/terminal/Terminal_limits.h"

namespace VT {

Serialisation_limits serialisation_limits(const Terminal& terminal)
{
    Serialisation_limits limits;
    limits.colour_format = EIGHT_BIT_COLOUR;
    if (terminal.colours <= 16)
        limits.colour_format = FOUR_BIT_COLOUR;
    if (terminal.colours <= 2)
        limits.colour_format = MONOCHROME;
    limits.small_font_mask = terminal.small_fonts;
    limits.large_font_mask = terminal.large_fonts;
    limits.font_style_mask = terminal.font_styles;
    return limits;
}

}
