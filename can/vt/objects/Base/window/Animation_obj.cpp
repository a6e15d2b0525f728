#include "can/vt/objects/Base/window/Animation_obj.h"

#include <cstdlib>
#include <iostream>

#include "can/vt/objects/Base/mask/Container_obj.h"

namespace VT::Base {

Animation_obj::Animation_obj(uint16_t id, const char* name, uint16_t width_, uint16_t height_,
                             uint16_t refresh_interval_, uint8_t value_, uint8_t enabled_, uint8_t first_child_index_,
                             uint8_t last_child_index_, uint8_t default_child_index_, uint8_t options_,
                             uint8_t num_objects_, uint8_t num_macros_, Attribute_object_placement* objects,
                             Attribute_event_macro* macros)
    : VT_obj(id, TYPE_ANIMATION, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), width_, height_, refresh_interval_, value_, enabled_, first_child_index_,
               last_child_index_, default_child_index_, options_, num_objects_, num_macros_, objects, macros);
    init_lists();
}

bool Animation_obj::__set_by_spec(scale_area_t area)
{
    uint8_t declared = 0;
    bool result;
    uint32_t count;
    if (spec_node && spec_node->get_uint8(&declared, num_objects.name)) {
        // The declared count wins over the children listed: missing ones become NULL entries.
        child_location.set_length(declared);
        result = VT_obj::__set_by_spec(area);
        child_location.set_length(declared);
        count = declared;
    } else {
        result = VT_obj::__set_by_spec(area);
        count = child_location.get_length();
    }
    for (uint32_t i = 0; i < count; ++i) {
        if (child_location[i].get_object_id() == NULL_ID) {
            std::cerr << "FATAL ERROR!  Animation '" << get_name() << "' refers to the NULL object in child " << i + 1
                      << std::endl;
            exit(-1);
        }
    }
    return result;
}

void Animation_obj::justify_placements()
{
    const Lock guard(*this);
    __justify_placements();
}

void Animation_obj::__justify_placements()
{
    __check_locked();
    justify(child_location, int16_t(_get_width()), int16_t(_get_height()));
}

int Animation_obj::__get_child_loc(unsigned short id) const
{
    return find_child_location(child_location, id);
}

}
