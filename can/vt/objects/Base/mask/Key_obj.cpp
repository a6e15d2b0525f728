#include "can/vt/objects/Base/mask/Key_obj.h"

#include <cstdlib>
#include <iostream>

namespace VT::Base {

Key_obj::Key_obj(unsigned short id, const char* name, unsigned char bg, unsigned char code, unsigned char n_objects,
                 unsigned char n_macros, Attribute_object_placement* placements, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_KEY, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), bg, code, n_objects, n_macros, placements, macros);
    init_lists();
}

bool Key_obj::__set_by_spec(scale_area_t area)
{
    bool r = VT_obj::__set_by_spec(area);
    // The attribute's range turns a given 0 into 1 (with its warning), so the code the
    // description gave is checked as well as the one kept.
    uint8_t given = 1;
    bool given_zero = spec_node && spec_node->get_uint8(&given, key_code.name) && given == 0;
    if (given_zero || key_code.get() == 0) {
        std::cerr << "FATAL ERROR!  Key '" << get_name() << "' has a key code of 0" << std::endl;
        exit(-1);
    }
    return r;
}

void Key_obj::justify_placements(int width, int height)
{
    const Lock guard(*this);
    __justify_placements(width, height);
}

void Key_obj::__justify_placements(int width, int height)
{
    __check_locked();
    justify(child_location, int16_t(width), int16_t(height));
}

}
