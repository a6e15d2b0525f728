#ifndef TOOLS_TERMINAL_COLOUR_REDUCTION_H
#define TOOLS_TERMINAL_COLOUR_REDUCTION_H

#include <cstdint>

namespace VT {

// Which colour a terminal of `colours` colours (2, 16 or 256) has for a colour of the 256-entry
// VT palette or for a true colour. The one rule every host tool uses, when it builds a pool for
// a terminal and when it draws one:
// - 256 colours keep every palette colour.
// - 16 colours: an index below 16 stays; any other colour becomes the nearest of the palette's
//   first sixteen by squared RGB distance (ties to the lower index).
// - 2 colours: black (0) or white (1) by luminance, 0.299 R + 0.587 G + 0.114 B on 0..255:
//   white from 128 up, black below.
// Any other count of colours counts as 256.
uint8_t reduce_colour(uint8_t index, int colours);

// The same for a true colour 0xRRGGBB (PNG pixels): 256 colours keep it; 16 and 2 colours give
// the RGB of the palette colour chosen as above.
uint32_t reduce_rgb(uint32_t rgb, int colours);
// The palette index a terminal of 16 or 2 colours shows a true colour as (the rule above).
uint8_t reduced_index(uint32_t rgb, int colours);

// The nearest colour of a 16- or 2-colour terminal to palette colour `index` other than `avoid`
// (for a picture's opaque pixels, which must not take its transparency colour).
uint8_t reduce_colour_avoiding(uint8_t index, int colours, uint8_t avoid);

// 0xFFRRGGBB of palette index `index` as a terminal of `colours` colours shows it.
uint32_t terminal_rgb(uint8_t index, int colours);

}

#endif
