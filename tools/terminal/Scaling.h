#ifndef TOOLS_TERMINAL_SCALING_H
#define TOOLS_TERMINAL_SCALING_H

#include <cstdint>

#include "tools/pool/Object_pool.h"

namespace VT {

// Fitting a pool designed for one screen to a terminal's data mask and soft keys.
class Scaling
{
public:
    struct Ratio
    {
        bool active = false;
        uint16_t num_x = 1, num_y = 1, den_x = 1, den_y = 1;
    };

    // Gives objects read from pool bytes the area they are drawn in, from the masks down.
    static void propagate_areas(Object_pool& pool);

    // Scales each object by the ratio of the area it is used in: the soft-key ratio for soft-key
    // masks, keys and what they hold, the data-mask ratio for everything else.
    static void scale(Object_pool& pool, const Ratio& mask, const Ratio& key);
};

}

#endif
