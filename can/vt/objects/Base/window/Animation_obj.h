#ifndef CAN_VT_OBJECTS_BASE_WINDOW_ANIMATION_OBJ_H
#define CAN_VT_OBJECTS_BASE_WINDOW_ANIMATION_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Animation (type 44): shows its children one after another, every refresh_interval ms,
// between the first and last child index.
class Animation_obj : public VT_obj
{
    Attribute_uint16 width{0, 65535, 0, "width"};
    Attribute_uint16 height{0, 65535, 0, "height"};
    Attribute_uint16 refresh_interval{0, 65535, 0, "refresh_interval"};
    Attribute_uint8 value{0, 255, 0, "value"};
    Attribute_uint8 enabled{0, 1, 0, "enabled"};
    Attribute_uint8 first_child_index{0, 254, 0, "first_child_index"};
    Attribute_uint8 last_child_index{0, 254, 0, "last_child_index"};
    Attribute_uint8 default_child_index{0, 254, 0, "default_child_index"};
    Attribute_uint8 options{0, 255, 0, "options"};
    Attribute_list_len<uint8_t> num_objects{"num_objects", &child_location};
    Attribute_list_len<uint8_t> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_object_placement> child_location{"child_location"};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    Animation_obj(uint16_t id, const char* name, uint16_t width, uint16_t height, uint16_t refresh_interval,
                  uint8_t value, uint8_t enabled, uint8_t first_child_index, uint8_t last_child_index,
                  uint8_t default_child_index, uint8_t options, uint8_t num_objects, uint8_t num_macros,
                  Attribute_object_placement* objects, Attribute_event_macro* macros);
    explicit Animation_obj(Spec_node* node) : VT_obj(node, TYPE_ANIMATION, tables) { init_lists(); }

    // A pool description may declare more children than it lists ("num_objects"); every counted child
    // must name an object, or the pool is unusable and the process ends.
    bool __set_by_spec(scale_area_t area) override;
    VT_PLACED_CHILDREN(child_location, 0)

    VT_ATTRIBUTE_GETTERS(width, height, refresh_interval, value, enabled, first_child_index, last_child_index,
                         default_child_index, options, num_objects, num_macros)
    VT_CHILD_LOCATION_GETTERS(child_location)
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_ANIMATION,
                     (width, height, refresh_interval, value, enabled, first_child_index, last_child_index,
                      default_child_index, options),
                     (width, height, refresh_interval, value, enabled, first_child_index, last_child_index,
                      default_child_index, options, num_objects, num_macros, child_location, event_macro))
};

}

#endif
