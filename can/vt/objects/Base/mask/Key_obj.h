#ifndef CAN_VT_OBJECTS_BASE_MASK_KEY_OBJ_H
#define CAN_VT_OBJECTS_BASE_MASK_KEY_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// Soft key (type 5): a key of a soft-key mask; its key code is reported when it is pressed.
class Key_obj : public VT_obj
{
public:
    Key_obj(unsigned short id, const char* name, unsigned char background_colour, unsigned char key_code,
            unsigned char num_objects, unsigned char num_macros, Attribute_object_placement* child_location,
            Attribute_event_macro* event_macro);
    explicit Key_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_KEY; }

    // A key code of 0 cannot be told apart from "no key": such a pool is refused outright.
    bool __set_by_spec(scale_area_t area) override;

    // A key has no size of its own: its children are laid out in the key size of the
    // terminal, which the caller passes.
    void justify_placements(int width, int height);
    void __justify_placements(int width, int height);

    VT_ATTRIBUTE_GETTER(unsigned char, background_colour)
    VT_ATTRIBUTE_GETTER(unsigned char, key_code)
    VT_ATTRIBUTE_GETTER(unsigned char, num_objects)
    VT_ATTRIBUTE_GETTER(unsigned char, num_macros)
    VT_CHILD_LOCATION_GETTERS(child_location)
    VT_EVENT_MACRO_GETTERS(event_macro)

private:
    void init_lists();

    Attribute_colour background_colour{0, "background_colour"};
    Attribute_uint8 key_code{1, 255, 1, "key_code"};
    Attribute_list_len<unsigned char> num_objects{"num_objects", &child_location};
    Attribute_list_len<unsigned char> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_object_placement> child_location{"child_location"};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};
    Attribute* aid_table_storage[3 + 1];
    Attribute* every_table_storage[6 + 1];
};

}
}

#endif
