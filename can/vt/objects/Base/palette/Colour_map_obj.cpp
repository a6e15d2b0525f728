#include "can/vt/objects/Base/palette/Colour_map_obj.h"

namespace VT::Base {

Colour_map_obj::Colour_map_obj(uint16_t id, const char* name, uint16_t num_colours_, uint8_t* colours_)
    : VT_obj(id, TYPE_COLOUR_MAP, tables, 0, nullptr, name)
{
    set_values(every_attributes(), num_colours_, colours_);
    init_lists();
}

}
