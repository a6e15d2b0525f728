#ifndef CAN_VT_OBJECTS_BASE_MASK_CONTAINER_OBJ_H
#define CAN_VT_OBJECTS_BASE_MASK_CONTAINER_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Container (type 3): groups placed objects in an area of its own size; can be hidden.
class Container_obj : public VT_obj
{
    Attribute_uint16 width{0, 65535, 0, "width"};
    Attribute_uint16 height{0, 65535, 0, "height"};
    Attribute_uint8 hidden{0, 1, 0, "hidden"};
    Attribute_list_len<unsigned char> num_objects{"num_objects", &child_location};
    Attribute_list_len<unsigned char> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_object_placement> child_location{"child_location"};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    Container_obj(unsigned short id, const char* name, unsigned short width, unsigned short height,
                  unsigned char hidden, unsigned char num_objects, unsigned char num_macros,
                  Attribute_object_placement* child_location, Attribute_event_macro* event_macro);
    explicit Container_obj(Spec_node* node) : VT_obj(node, TYPE_CONTAINER, tables) { init_lists(); }

    // A pool description may declare its child count ("num_objects") apart from the children it lists;
    // the declared count wins, missing children becoming NULL references.
    bool __set_by_spec(scale_area_t area) override
    {
        return __set_by_spec_counted(area, child_location, num_objects.name);
    }
    VT_SIZE_FROM_ATTRIBUTES
    VT_PLACED_CHILDREN(child_location, 0)

    VT_ATTRIBUTE_GETTERS(hidden, num_objects, num_macros)
    VT_CHILD_LOCATION_GETTERS(child_location)
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_CONTAINER, (width, height, hidden),
                     (width, height, hidden, num_objects, num_macros, child_location, event_macro))
};

}

#endif
