#include "can/vt/objects/Base/window/Animation_obj.h"

#include <cstdlib>
#include <iostream>

namespace VT {
namespace Base {

Animation_obj::Animation_obj(uint16_t id, const char* name, uint16_t width_, uint16_t height_,
                             uint16_t refresh_interval_, uint8_t value_, uint8_t enabled_, uint8_t first_child_index_,
                             uint8_t last_child_index_, uint8_t default_child_index_, uint8_t options_,
                             uint8_t num_objects_, uint8_t num_macros_, Attribute_object_placement* objects,
                             Attribute_event_macro* macros)
    : VT_obj(id, TYPE_ANIMATION, 10, aid_table_storage, 13, every_table_storage, 0, &event_macro, name),
      width(0, 65535, width_, "width"), height(0, 65535, height_, "height"),
      refresh_interval(0, 65535, refresh_interval_, "refresh_interval"), value(0, 255, value_, "value"),
      enabled(0, 1, enabled_, "enabled"), first_child_index(0, 254, first_child_index_, "first_child_index"),
      last_child_index(0, 254, last_child_index_, "last_child_index"),
      default_child_index(0, 254, default_child_index_, "default_child_index"), options(0, 255, options_, "options"),
      child_location("child_location", objects, num_objects_), event_macro("event_macro", macros, num_macros_)
{
    init_lists();
}

Animation_obj::Animation_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_ANIMATION, 10, aid_table_storage, 13, every_table_storage, NO_NAME, NULL_ID),
      width(0, 65535, 0, "width"), height(0, 65535, 0, "height"), refresh_interval(0, 65535, 0, "refresh_interval"),
      value(0, 255, 0, "value"), enabled(0, 1, 0, "enabled"), first_child_index(0, 254, 0, "first_child_index"),
      last_child_index(0, 254, 0, "last_child_index"), default_child_index(0, 254, 0, "default_child_index"),
      options(0, 255, 0, "options"), child_location("child_location"), event_macro("event_macro")
{
    init_lists();
}

void Animation_obj::init_lists()
{
    set_table(aid_table_storage,
              {class_type_attribute<TYPE_ANIMATION>(), &width, &height, &refresh_interval, &value, &enabled,
               &first_child_index, &last_child_index, &default_child_index, &options});
    set_table(every_table_storage,
              {&width, &height, &refresh_interval, &value, &enabled, &first_child_index, &last_child_index,
               &default_child_index, &options, &num_objects, &num_macros, &child_location, &event_macro});
}

bool Animation_obj::__set_by_spec(scale_area_t area)
{
    uint8_t declared = 0;
    bool result;
    uint32_t count;
    if (spec_node && spec_node->get_uint8(&declared, "num_objects")) {
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
    lock();
    __justify_placements();
    unlock();
}

void Animation_obj::__justify_placements()
{
    __check_locked();
    justify(child_location, int16_t(_get_width()), int16_t(_get_height()));
}

int Animation_obj::__get_child_loc(unsigned short id) const
{
    for (uint32_t i = 0; i < child_location.held(); ++i)
        if (child_location[i].get_object_id() == id)
            return int(i);
    return -1;
}

}
}
