#ifndef CAN_VT_OBJECTS_BASE_WINDOW_ANIMATION_OBJ_H
#define CAN_VT_OBJECTS_BASE_WINDOW_ANIMATION_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// Animation (type 44): shows its children one after another, every refresh_interval ms,
// between the first and last child index.
class Animation_obj : public VT_obj
{
public:
    Animation_obj(uint16_t id, const char* name, uint16_t width, uint16_t height, uint16_t refresh_interval,
                  uint8_t value, uint8_t enabled, uint8_t first_child_index, uint8_t last_child_index,
                  uint8_t default_child_index, uint8_t options, uint8_t num_objects, uint8_t num_macros,
                  Attribute_object_placement* objects, Attribute_event_macro* macros);
    explicit Animation_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_ANIMATION; }

    // A pool description may declare more children than it lists ("num_objects"); every counted child
    // must name an object, or the pool is unusable and the process ends.
    bool __set_by_spec(scale_area_t area) override;
    void justify_placements();
    void __justify_placements();
    // Index of the first child entry naming `id`, or -1.
    int __get_child_loc(unsigned short id) const;

    VT_ATTRIBUTE_GETTER(uint16_t, width)
    VT_ATTRIBUTE_GETTER(uint16_t, height)
    VT_ATTRIBUTE_GETTER(uint16_t, refresh_interval)
    VT_ATTRIBUTE_GETTER(uint8_t, value)
    VT_ATTRIBUTE_GETTER(uint8_t, enabled)
    VT_ATTRIBUTE_GETTER(uint8_t, first_child_index)
    VT_ATTRIBUTE_GETTER(uint8_t, last_child_index)
    VT_ATTRIBUTE_GETTER(uint8_t, default_child_index)
    VT_ATTRIBUTE_GETTER(uint8_t, options)
    VT_ATTRIBUTE_GETTER(uint8_t, num_objects)
    VT_ATTRIBUTE_GETTER(uint8_t, num_macros)
    VT_CHILD_LOCATION_GETTERS(child_location)
    VT_EVENT_MACRO_GETTERS(event_macro)

private:
    void init_lists();

    Attribute_uint16 width;
    Attribute_uint16 height;
    Attribute_uint16 refresh_interval;
    Attribute_uint8 value;
    Attribute_uint8 enabled;
    Attribute_uint8 first_child_index;
    Attribute_uint8 last_child_index;
    Attribute_uint8 default_child_index;
    Attribute_uint8 options;
    Attribute_list_len<uint8_t> num_objects{"num_objects", &child_location};
    Attribute_list_len<uint8_t> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_object_placement> child_location;
    Attribute_list<Attribute_event_macro> event_macro;
    Attribute* aid_table_storage[10 + 1];
    Attribute* every_table_storage[13 + 1];
};

}
}

#endif
