#ifndef CAN_VT_OBJECTS_BASE_MASK_SOFT_KEY_MASK_OBJ_H
#define CAN_VT_OBJECTS_BASE_MASK_SOFT_KEY_MASK_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Soft-key mask (type 4): the keys shown in the soft-key area beside a data or alarm mask.
class Soft_key_mask_obj : public VT_obj
{
    Attribute_colour background_colour{0, "background_colour"};
    Attribute_list_len<unsigned char> num_objects{"num_objects", &child_objects};
    Attribute_list_len<unsigned char> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_object_id> child_objects{"child_objects"};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    Soft_key_mask_obj(unsigned short id, const char* name, unsigned char background_colour, unsigned char num_objects,
                      unsigned char num_macros, Attribute_object_id* child_objects, Attribute_event_macro* event_macro);
    explicit Soft_key_mask_obj(Spec_node* node) : VT_obj(node, TYPE_SOFT_KEY_MASK, tables) { init_lists(); }

    bool __set_by_spec(scale_area_t area) override;

    VT_ATTRIBUTE_GETTERS(background_colour, num_objects, num_macros)
    VT_INDEXED_GETTER(unsigned short, child_objects, child_objects[i].get())
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_SOFT_KEY_MASK, (background_colour),
                     (background_colour, num_objects, num_macros, child_objects, event_macro))
};

}

#endif
