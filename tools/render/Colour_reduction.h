#ifndef TOOLS_RENDER_COLOUR_REDUCTION_H
#define TOOLS_RENDER_COLOUR_REDUCTION_H

#include <cstdint>

namespace VT {
namespace Render {

// What a terminal of `colours` colours (2, 16 or 256) shows for a colour of the 256-entry VT
// palette: 256 colours keep it; 16 colours show the nearest of the palette's first sixteen
// (an index below 16 stays); 2 colours show black (0) or white (1), whichever is nearer to the
// colour's luminance. Any other depth counts as 256.
uint8_t reduce_colour(uint8_t index, int colours);

// The same for a true colour 0xRRGGBB (PNG pixels): 256 colours keep it; 16 and 2 colours give
// the RGB of the palette colour chosen as above.
uint32_t reduce_rgb(uint32_t rgb, int colours);

// 0xFFRRGGBB of palette index `index` as a terminal of `colours` colours shows it.
uint32_t terminal_rgb(uint8_t index, int colours);

}
}

#endif
