#include "can/vt/objects/Base/output_graphic/Scaled_graphic_obj.h"

#include <algorithm>

namespace VT::Base {

Scaled_graphic_obj::Scaled_graphic_obj(uint16_t id, const char* name, uint16_t width_v, uint16_t height_v,
                                       uint8_t scale_type_v, uint8_t options_v, uint16_t value_v, uint8_t num_macros_v,
                                       Attribute_event_macro* macros)
    : VT_obj(id, TYPE_SCALED_GRAPHIC, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), width_v, height_v, scale_type_v, options_v, value_v, num_macros_v, macros);
    init_lists();
}

Scaled_graphic_obj::Placement Scaled_graphic_obj::_place(int iw, int ih) const
{
    __check_locked();
    const int64_t bw = width.get(), bh = height.get();
    int64_t w = iw, h = ih;
    if (iw > 0 && ih > 0) {
        switch (scale_type.get() & 7) {
        case SCALE_TO_WIDTH:
            w = bw;
            h = bw * ih / iw;
            break;
        case SCALE_TO_HEIGHT:
            h = bh;
            w = bh * iw / ih;
            break;
        case SCALE_STRETCH:
            w = bw;
            h = bh;
            break;
        case SCALE_FIT:
            // The smaller of the two ratios, compared without division.
            if (bw * ih <= bh * iw) {
                w = bw;
                h = bw * ih / iw;
            } else {
                h = bh;
                w = bh * iw / ih;
            }
            break;
        default: // no scaling, and the reserved values
            break;
        }
    }
    // Placed in the box by bits 3-4 and 5-6: 0 at the start, 1 in the middle, 2 at the end
    // (3, reserved, at the start).
    auto at = [](int64_t box, int64_t size, int where) -> int64_t {
        return where == 1 ? (box - size) / 2 : where == 2 ? box - size : 0;
    };
    const int64_t x = at(bw, w, (scale_type.get() >> 3) & 3);
    const int64_t y = at(bh, h, (scale_type.get() >> 5) & 3);
    auto narrow = [](int64_t v) { return int(std::clamp<int64_t>(v, -65535, 65535)); };
    return {narrow(x), narrow(y), narrow(w), narrow(h)};
}

}
