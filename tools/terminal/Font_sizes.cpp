#include "tools/terminal/Font_sizes.h"

#include "tools/check/Object_facts.h"

namespace VT {

namespace {

const Font_sizes::Cell cells[Font_sizes::COUNT] = {
    {6, 8},   {8, 8},   {8, 12},   {12, 16},  {16, 16},  {16, 24},   {24, 32},  {32, 32},
    {32, 48}, {48, 64}, {64, 64},  {64, 96},  {96, 128}, {128, 128}, {128, 192},
};

}

Font_sizes::Cell Font_sizes::cell(uint8_t size)
{
    return cells[size < COUNT ? size : COUNT - 1];
}

bool Font_sizes::has(const Terminal& terminal, uint8_t size)
{
    if (size < 8)
        return terminal.small_fonts >> size & 1;
    return size < COUNT && (terminal.large_fonts >> (size - 8) & 1);
}

uint8_t Font_sizes::fitting(int width, int height)
{
    uint8_t best = 0;
    for (uint8_t s = 0; s < COUNT; ++s)
        if (cells[s].width <= width && cells[s].height <= height)
            best = s;
    return best;
}

uint8_t Font_sizes::for_height(int height)
{
    uint8_t best = 0;
    for (uint8_t s = 0; s < COUNT; ++s)
        if (cells[s].height <= height)
            best = s;
    return best;
}

uint8_t Font_sizes::supported(const Terminal& terminal, uint8_t size)
{
    if (size >= COUNT)
        size = COUNT - 1;
    for (int s = size; s >= 0; --s)
        if (has(terminal, uint8_t(s)))
            return uint8_t(s);
    for (int s = size + 1; s < COUNT; ++s)
        if (has(terminal, uint8_t(s)))
            return uint8_t(s);
    return 0;
}

bool Font_sizes::proportional(const Terminal& terminal)
{
    const int needs = Check::value_version(VT_obj_type::TYPE_FONT_ATTRIBUTES, "font_style", STYLE_PROPORTIONAL);
    return (terminal.vt_version == 0 || terminal.vt_version >= needs) && (terminal.font_styles & STYLE_PROPORTIONAL);
}

}
