#ifndef CAN_VT_OBJECTS_BASE_MASK_WORKING_SET_OBJ_H
#define CAN_VT_OBJECTS_BASE_MASK_WORKING_SET_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Working set (type 0): the root of a pool. Names the active mask, places the objects
// shown while the working set is not active and lists the languages it supports.
class Working_set_obj : public VT_obj
{
    Attribute_colour background_colour{0, "background_colour"};
    Attribute_uint8 selectable{0, 1, 0, "selectable"};
    Attribute_object_id active_mask{65535, "active_mask"};
    Attribute_list_len<unsigned char> num_objects{"num_objects", &child_location};
    Attribute_list_len<unsigned char> num_macros{"num_macros", &event_macro};
    Attribute_list_len<unsigned char> num_languages{"num_languages", &languages};
    Attribute_list<Attribute_object_placement> child_location{"child_location"};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};
    Attribute_list<Attribute_lang> languages{"languages"};

public:
    Working_set_obj(unsigned short id, const char* name, unsigned char background_colour, unsigned char selectable,
                    unsigned short active_mask, unsigned char num_objects, unsigned char num_macros,
                    unsigned char num_languages, Attribute_object_placement* child_location,
                    Attribute_event_macro* event_macro, Attribute_lang* languages);
    explicit Working_set_obj(Spec_node* node) : VT_obj(node, TYPE_WORKING_SET, tables) { init_lists(); }

    VT_ATTRIBUTE_GETTERS(background_colour, selectable, active_mask, num_objects, num_macros, num_languages)
    VT_CHILD_LOCATION_GETTERS(child_location)
    VT_EVENT_MACRO_GETTERS(event_macro)
    VT_INDEXED_GETTER(unsigned char, languages_byte_1, languages[i].get_byte_1())
    VT_INDEXED_GETTER(unsigned char, languages_byte_2, languages[i].get_byte_2())

    VT_OBJECT_TABLES(TYPE_WORKING_SET, (background_colour, selectable, active_mask),
                     (background_colour, selectable, active_mask, num_objects, num_macros, num_languages,
                      child_location, event_macro, languages))
};

}

#endif
