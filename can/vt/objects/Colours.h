#ifndef CAN_VT_OBJECTS_COLOURS_H
#define CAN_VT_OBJECTS_COLOURS_H

#include <QColor>
#include <QVector>

namespace VT {

// Pixel formats and terminal colour depths.
enum format_t { MONOCHROME = 0, FOUR_BIT_COLOUR = 1, EIGHT_BIT_COLOUR = 2 };

}

// The standard 256-entry Virtual Terminal palette.
class Colours
{
public:
    // Palette entry `index` (alpha always 255); indices outside 0..255 are black.
    static void get_vt_colour(int index, unsigned& a, unsigned& r, unsigned& g, unsigned& b);
    static void get_vt_colour(int index, QColor& colour);
    // 256 entries of 0xAARRGGBB, built on first use.
    static const QVector<unsigned int>& get_standard_vt_colour_table();
    // Clears from argb every bit set in the packed value of palette entry `index`.
    static unsigned int set_vt_colour_trans(unsigned int& argb, int index);
};

#endif
