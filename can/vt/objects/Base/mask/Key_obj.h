#ifndef CAN_VT_OBJECTS_BASE_MASK_KEY_OBJ_H
#define CAN_VT_OBJECTS_BASE_MASK_KEY_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Soft key (type 5): a key of a soft-key mask; its key code is reported when it is pressed.
class Key_obj : public VT_obj
{
    Attribute_colour background_colour{0, "background_colour"};
    Attribute_uint8 key_code{1, 255, 1, "key_code"};
    Attribute_list_len<unsigned char> num_objects{"num_objects", &child_location};
    Attribute_list_len<unsigned char> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_object_placement> child_location{"child_location"};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    Key_obj(unsigned short id, const char* name, unsigned char background_colour, unsigned char key_code,
            unsigned char num_objects, unsigned char num_macros, Attribute_object_placement* child_location,
            Attribute_event_macro* event_macro);
    explicit Key_obj(Spec_node* node) : VT_obj(node, TYPE_KEY, tables) { init_lists(); }

    // A key code of 0 cannot be told apart from "no key": such a pool is refused outright.
    bool __set_by_spec(scale_area_t area) override;

    // A key has no size of its own: its children are laid out in the key size of the
    // terminal, which the caller passes.
    void justify_placements(int width, int height);
    void __justify_placements(int width, int height);

    VT_ATTRIBUTE_GETTERS(background_colour, key_code, num_objects, num_macros)
    VT_CHILD_LOCATION_GETTERS(child_location)
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_KEY, (background_colour, key_code),
                     (background_colour, key_code, num_objects, num_macros, child_location, event_macro))
};

}

#endif
