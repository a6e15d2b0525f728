#include "can/vt/objects/Base/window/Animation_obj.h"

#include <cstdlib>
#include <iostream>

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
    const bool result = __set_by_spec_counted(area, child_location, num_objects.name);
    for (uint32_t i = 0; i < child_location.get_length(); ++i) {
        if (child_location[i].get_object_id() == NULL_ID) {
            std::cerr << "FATAL ERROR!  Animation '" << get_name() << "' refers to the NULL object in child " << i + 1
                      << std::endl;
            exit(-1);
        }
    }
    return result;
}

}
