#include "can/vt/objects/Base/palette/Colour_palette_obj.h"

namespace VT::Base {

Colour_palette_obj::Colour_palette_obj(uint16_t id, const char* name, uint8_t options_, uint8_t num_colours_,
                                       unsigned int* colours_)
    : VT_obj(id, TYPE_COLOUR_PALETTE, tables, 0, nullptr, name)
{
    set_values(every_attributes(), options_, num_colours_, colours_);
    init_lists();
}

}
