#include "can/vt/objects/Colours.h"

namespace {
const unsigned standard_rgb[16] = {0x000000, 0xFFFFFF, 0x009900, 0x009999, 0x990000, 0x990099, 0x999900, 0xCCCCCC,
                                   0x999999, 0x0000FF, 0x00FF00, 0x00FFFF, 0xFF0000, 0xFF00FF, 0xFFFF00, 0x000099};
// Entries 232..255: the system's own colours.
const unsigned own_rgb[24] = {0x000001, 0x000002, 0x000000, 0x000000, 0x666666, 0x000000, 0xFFFFFF, 0xFFFFFF,
                              0x000000, 0xFFFFCC, 0xCCCCCC, 0x999999, 0xCCCCCC, 0xFFFFFF, 0xFFFFFF, 0x999999,
                              0xFFFFFF, 0x9D1624, 0x000000, 0x000000, 0x000000, 0x000000, 0x000000, 0x000000};

unsigned rgb_of(int index)
{
    if (index >= 0 && index < 16)
        return standard_rgb[index];
    if (index >= 16 && index <= 230) {
        int k = index - 16;
        unsigned r = unsigned(k / 36) * 51, g = unsigned((k / 6) % 6) * 51, b = unsigned(k % 6) * 51;
        return r << 16 | g << 8 | b;
    }
    if (index == 231)
        return 0xFFFFFF;
    if (index >= 232 && index <= 255)
        return own_rgb[index - 232];
    return 0;
}
}

void Colours::get_vt_colour(int index, unsigned& a, unsigned& r, unsigned& g, unsigned& b)
{
    unsigned rgb = rgb_of(index);
    a = 255;
    r = rgb >> 16 & 0xFF;
    g = rgb >> 8 & 0xFF;
    b = rgb & 0xFF;
}

void Colours::get_vt_colour(int index, QColor& colour)
{
    unsigned a, r, g, b;
    get_vt_colour(index, a, r, g, b);
    colour.setRgb(int(r), int(g), int(b), int(a));
}

const QVector<unsigned int>& Colours::get_standard_vt_colour_table()
{
    static const QVector<unsigned int> table = [] {
        QVector<unsigned int> t(256);
        for (int i = 0; i < 256; ++i)
            t[i] = 0xFF000000u | rgb_of(i);
        return t;
    }();
    return table;
}

unsigned int Colours::set_vt_colour_trans(unsigned int& argb, int index)
{
    argb &= ~(0xFF000000u | rgb_of(index));
    return argb;
}
