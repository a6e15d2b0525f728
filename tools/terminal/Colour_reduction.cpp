#include "tools/terminal/Colour_reduction.h"

#include <array>

#include "can/vt/objects/Colours.h"

namespace VT {

namespace {

uint32_t palette_rgb(int index)
{
    return Colours::get_standard_vt_colour_table()[index] & 0xFFFFFFu;
}

int channel(uint32_t rgb, int shift)
{
    return int(rgb >> shift & 0xFF);
}

long distance(uint32_t a, uint32_t b)
{
    long d = 0;
    for (int shift : {16, 8, 0}) {
        const long c = channel(a, shift) - channel(b, shift);
        d += c * c;
    }
    return d;
}

// Nearest of the first sixteen palette colours by squared RGB distance, leaving out `avoid`
// (-1: none); ties go to the lower index.
uint8_t nearest_of_sixteen(uint32_t rgb, int avoid = -1)
{
    int best = -1;
    long best_distance = 0;
    for (int i = 0; i < 16; ++i) {
        if (i == avoid)
            continue;
        const long d = distance(rgb, palette_rgb(i));
        if (best < 0 || d < best_distance) {
            best = i;
            best_distance = d;
        }
    }
    return uint8_t(best);
}

uint8_t black_or_white(uint32_t rgb)
{
    const int luminance = (299 * channel(rgb, 16) + 587 * channel(rgb, 8) + 114 * channel(rgb, 0)) / 1000;
    return luminance >= 128 ? 1 : 0;
}

struct Tables
{
    std::array<uint8_t, 256> sixteen;
    std::array<uint8_t, 256> two;
    Tables()
    {
        for (int i = 0; i < 256; ++i) {
            sixteen[size_t(i)] = i < 16 ? uint8_t(i) : nearest_of_sixteen(palette_rgb(i));
            two[size_t(i)] = black_or_white(palette_rgb(i));
        }
    }
};

const Tables& tables()
{
    static const Tables t;
    return t;
}

}

uint8_t reduce_colour(uint8_t index, int colours)
{
    if (colours == 16)
        return tables().sixteen[index];
    if (colours == 2)
        return tables().two[index];
    return index;
}

uint8_t reduced_index(uint32_t rgb, int colours)
{
    return colours == 2 ? black_or_white(rgb & 0xFFFFFFu) : nearest_of_sixteen(rgb & 0xFFFFFFu);
}

uint32_t reduce_rgb(uint32_t rgb, int colours)
{
    rgb &= 0xFFFFFFu;
    if (colours == 16 || colours == 2)
        return palette_rgb(reduced_index(rgb, colours));
    return rgb;
}

uint8_t reduce_colour_avoiding(uint8_t index, int colours, uint8_t avoid)
{
    const uint8_t reduced = reduce_colour(index, colours);
    if (reduced != avoid)
        return reduced;
    if (colours == 2)
        return uint8_t(1 - (avoid & 1));
    return nearest_of_sixteen(palette_rgb(index), avoid);
}

uint32_t terminal_rgb(uint8_t index, int colours)
{
    return 0xFF000000u | palette_rgb(reduce_colour(index, colours));
}

}
