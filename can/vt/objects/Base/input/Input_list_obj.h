#ifndef CAN_VT_OBJECTS_BASE_INPUT_INPUT_LIST_OBJ_H
#define CAN_VT_OBJECTS_BASE_INPUT_INPUT_LIST_OBJ_H

#include "can/vt/objects/Base/input/Input_number_obj.h"
#include "can/vt/objects/Base/input/Input_obj_base.h"
#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Input list (type 10): the operator picks one of the listed objects.
class Input_list_obj : public VT_obj, public Input_obj_base
{
    Attribute_uint16 width{0, 65535, 0, "width"};
    Attribute_uint16 height{0, 65535, 0, "height"};
    Attribute_object_id variable_reference{65535, "variable_reference"};
    Attribute_uint8 value{0, 255, 0, "value"};
    Attribute_list_len<uint8_t> num_list_items{"num_list_items", &child_objects};
    Attribute_uint8 options2{0, 3, 0, "options2"};
    Attribute_list_len<uint8_t> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_object_id> child_objects{"child_objects"};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    // Copies num_list_items entries of `items` and num_macros entries of `macros`.
    Input_list_obj(uint16_t id, const char* name, unsigned short width, unsigned short height,
                   unsigned short variable_reference, unsigned char value, unsigned char num_list_items,
                   unsigned char options2, unsigned char num_macros, Attribute_object_id* items,
                   Attribute_event_macro* macros);
    explicit Input_list_obj(Spec_node* node) : VT_obj(node, TYPE_INPUT_LIST, tables) { init_lists(); }

    VT_ATTRIBUTE_GETTER_OVERRIDE(unsigned char, options2)
    // Options 2 of an input list is addressed under an input number's AID, whatever its own.
    unsigned char get_options2_aid() override { return Input_number_obj::AID::options2; }
    VT_obj* get_vt_obj() override { return this; }

    VT_ATTRIBUTE_GETTERS(width, height, variable_reference, value, num_list_items, num_macros)
    VT_INDEXED_GETTER(uint16_t, child_objects_val, child_objects[i].get())
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_INPUT_LIST, (width, height, variable_reference, value, options2),
                     (width, height, variable_reference, value, num_list_items, options2, num_macros, child_objects,
                      event_macro))
};

}

#endif
