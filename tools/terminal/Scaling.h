#ifndef TOOLS_TERMINAL_SCALING_H
#define TOOLS_TERMINAL_SCALING_H

#include <QString>
#include <QVector>
#include <cstdint>

#include "tools/pool/Object_pool.h"
#include "tools/terminal/Terminal.h"

namespace VT {

// The screen a pool was designed for; 0 where a size was not given (the pool is then not
// scaled in that area).
struct Design_size
{
    uint16_t mask_width = 0, mask_height = 0; // the data-mask area
    uint16_t key_width = 0, key_height = 0;   // one soft-key designator
};

// Fitting a pool designed for one screen to a terminal's data mask and soft keys.
class Scaling
{
public:
    struct Ratio
    {
        bool active = false;
        uint16_t num_x = 1, num_y = 1, den_x = 1, den_y = 1;
    };

    // The terminal's size over the designed one, for the data-mask and the soft-key area;
    // inactive where no design size was given.
    static Ratio mask_ratio(const Terminal& terminal, const Design_size& design);
    static Ratio key_ratio(const Terminal& terminal, const Design_size& design);

    // What the library said of an object while it learned its area (an object drawn both in
    // the data mask and on a soft key, which is scaled by one ratio only), once per object and
    // line.
    struct Area_note
    {
        VT_obj* object;
        QString text;
    };
    // Gives objects read from pool bytes the area they are drawn in, from the masks down.
    static QVector<Area_note> propagate_areas(Object_pool& pool);

    // Scales each object by the ratio of the area it is used in: the soft-key ratio for soft-key
    // masks, keys and what they hold, the data-mask ratio for everything else.
    static void scale(Object_pool& pool, const Ratio& mask, const Ratio& key);
    // The ratio scale() applies to `obj`.
    static const Ratio& ratio_for(const VT_obj& obj, const Ratio& mask, const Ratio& key);
};

}

#endif
