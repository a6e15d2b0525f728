#ifndef CAN_VT_OBJECTS_BASE_MASK_KEY_GROUP_OBJ_H
#define CAN_VT_OBJECTS_BASE_MASK_KEY_GROUP_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Key group (type 35): keys offered together for assignment to physical controls, with a
// name and an icon.
class Key_group_obj : public VT_obj
{
    Attribute_uint8 options{0, 3, 0, "options"};
    Attribute_object_id group_name{65535, "group_name"};
    // Serialised, but not addressable by attribute id.
    Attribute_object_id key_group_icon{65535, "key_group_icon"};
    Attribute_list_len<unsigned char> num_objects{"num_objects", &child_objects};
    Attribute_list_len<unsigned char> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_object_id> child_objects{"child_objects"};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    Key_group_obj(unsigned short id, const char* name, unsigned char options, unsigned short group_name,
                  unsigned short key_group_icon, unsigned char num_objects, unsigned char num_macros,
                  Attribute_object_id* child_objects, Attribute_event_macro* event_macro);
    explicit Key_group_obj(Spec_node* node) : VT_obj(node, TYPE_KEY_GROUP, tables) { init_lists(); }

    VT_ATTRIBUTE_GETTERS(options, group_name, key_group_icon, num_objects, num_macros)
    VT_INDEXED_GETTER(unsigned short, child_objects, child_objects[i].get())
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_KEY_GROUP, (options, group_name),
                     (options, group_name, key_group_icon, num_objects, num_macros, child_objects, event_macro))
};

}

#endif
