#include "can/vt/objects/Base/palette/Iso_special_controls_obj.h"

namespace VT::Base {

Iso_special_controls_obj::Iso_special_controls_obj(uint16_t id, const char* name, uint16_t colour_map_v,
                                                   uint16_t colour_palette_v, uint8_t num_language_pairs_v,
                                                   Attribute_language_pair* pairs)
    : VT_obj(id, TYPE_ISO_SPECIAL_CONTROLS, tables, 0, nullptr, name)
{
    set_values(every_attributes(), colour_map_v, colour_palette_v, num_language_pairs_v, pairs);
    init_lists();
}

}
