#ifndef CAN_VT_OBJECTS_BASE_OUTPUT_OUTPUT_LIST_OBJ_H
#define CAN_VT_OBJECTS_BASE_OUTPUT_OUTPUT_LIST_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Output list (type 37): shows the listed object that the value selects.
class Output_list_obj : public VT_obj
{
    Attribute_uint16 width{0, 65535, 0, "width"};
    Attribute_uint16 height{0, 65535, 0, "height"};
    Attribute_object_id variable_reference{65535, "variable_reference"};
    Attribute_uint8 value{0, 255, 0, "value"};
    Attribute_list_len<uint8_t> num_list_items{"num_list_items", &child_objects};
    Attribute_list_len<uint8_t> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_object_id> child_objects{"child_objects"};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    // Copies num_list_items entries of `items` and num_macros entries of `macros`.
    Output_list_obj(uint16_t id, const char* name, unsigned short width, unsigned short height,
                    unsigned short variable_reference, unsigned char value, unsigned char num_list_items,
                    unsigned char num_macros, Attribute_object_id* items, Attribute_event_macro* macros);
    explicit Output_list_obj(Spec_node* node) : VT_obj(node, TYPE_OUTPUT_LIST, tables) { init_lists(); }

    // An output list has no options 2: 255 stands for no attribute.
    unsigned char get_options2_aid() { return 255; }
    VT_obj* get_vt_obj() { return this; }

    VT_ATTRIBUTE_GETTERS(width, height, variable_reference, value, num_list_items, num_macros)
    VT_INDEXED_GETTER(uint16_t, child_objects_val, child_objects[i].get())
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_OUTPUT_LIST, (width, height, variable_reference, value),
                     (width, height, variable_reference, value, num_list_items, num_macros, child_objects, event_macro))
};

}

#endif
