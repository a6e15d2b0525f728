#ifndef CAN_VT_OBJECTS_BASE_MASK_CONTAINER_OBJ_H
#define CAN_VT_OBJECTS_BASE_MASK_CONTAINER_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// Container (type 3): groups placed objects in an area of its own size; can be hidden.
class Container_obj : public VT_obj
{
public:
    Container_obj(unsigned short id, const char* name, unsigned short width, unsigned short height,
                  unsigned char hidden, unsigned char num_objects, unsigned char num_macros,
                  Attribute_object_placement* child_location, Attribute_event_macro* event_macro);
    explicit Container_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_CONTAINER; }

    // A pool description may declare its child count ("num_objects") apart from the children it lists;
    // the declared count wins, missing children becoming NULL references.
    bool __set_by_spec(scale_area_t area) override;
    uint16_t _get_width() const override
    {
        __check_locked();
        return width;
    }
    uint16_t _get_height() const override
    {
        __check_locked();
        return height;
    }

    // Lays the justified children out within the container's area.
    void justify_placements();
    void __justify_placements();
    // Index of the first placement of object `id`, or -1.
    int __get_child_loc(unsigned short id) const;

    VT_ATTRIBUTE_GETTER(unsigned char, hidden)
    VT_ATTRIBUTE_GETTER(unsigned char, num_objects)
    VT_ATTRIBUTE_GETTER(unsigned char, num_macros)
    VT_CHILD_LOCATION_GETTERS(child_location)
    VT_EVENT_MACRO_GETTERS(event_macro)

private:
    void init_lists();

    Attribute_uint16 width{0, 65535, 0, "width"};
    Attribute_uint16 height{0, 65535, 0, "height"};
    Attribute_uint8 hidden{0, 1, 0, "hidden"};
    Attribute_list_len<unsigned char> num_objects{"num_objects", &child_location};
    Attribute_list_len<unsigned char> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_object_placement> child_location{"child_location"};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};
    Attribute* aid_table_storage[4 + 1];
    Attribute* every_table_storage[7 + 1];
};

// Index of the first placement in `list` of object `id`, or -1.
int find_child_location(const Attribute_list<Attribute_object_placement>& list, unsigned short id);

}
}

#endif
