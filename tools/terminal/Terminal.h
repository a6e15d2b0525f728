#ifndef TOOLS_TERMINAL_TERMINAL_H
#define TOOLS_TERMINAL_TERMINAL_H

#include <cstdint>

namespace VT {

// What a build, a check or a drawing targets: the properties a Virtual Terminal reports about
// itself (its version, graphic type, screen and soft keys, fonts). Every tool that writes,
// checks or draws a pool for a terminal takes one of these.
struct Terminal
{
    int vt_version = 0;                  // 2..6; 0 when none was named
    int colours = 256;                   // 2 (monochrome), 16 or 256
    uint16_t data_mask_width = 480;      // the data-mask area, in pixels
    uint16_t data_mask_height = 480;
    uint16_t key_width = 60;             // one soft-key designator, in pixels
    uint16_t key_height = 60;
    uint8_t physical_soft_keys = 6;      // keys shown at once beside the data mask
    uint8_t virtual_soft_keys = 64;      // keys a soft-key mask may hold
    uint8_t small_fonts = 0xFF;          // bits 0..7: font sizes 6x8 .. 32x32
    uint8_t large_fonts = 0xFF;          // bits 0..6: font sizes 32x48 .. 128x192
    uint8_t font_styles = 0xFF;          // bit n: font style n (bold, crossed out, ...)
};

}

#endif
