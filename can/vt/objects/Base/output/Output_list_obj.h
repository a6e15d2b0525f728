#ifndef CAN_VT_OBJECTS_BASE_OUTPUT_OUTPUT_LIST_OBJ_H
#define CAN_VT_OBJECTS_BASE_OUTPUT_OUTPUT_LIST_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// Output list (type 37): shows the listed object that the value selects.
class Output_list_obj : public VT_obj
{
public:
    // Copies num_list_items entries of `items` and num_macros entries of `macros`.
    Output_list_obj(uint16_t id, const char* name, unsigned short width, unsigned short height,
                    unsigned short variable_reference, unsigned char value, unsigned char num_list_items,
                    unsigned char num_macros, Attribute_object_id* items, Attribute_event_macro* macros);
    explicit Output_list_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_OUTPUT_LIST; }

    // An output list has no options 2: 255 stands for no attribute.
    unsigned char get_options2_aid() { return 255; }
    VT_obj* get_vt_obj() { return this; }

    VT_ATTRIBUTE_GETTER(uint16_t, width)
    VT_ATTRIBUTE_GETTER(uint16_t, height)
    VT_ATTRIBUTE_GETTER(uint16_t, variable_reference)
    VT_ATTRIBUTE_GETTER(uint8_t, value)
    VT_ATTRIBUTE_GETTER(uint8_t, num_list_items)
    VT_ATTRIBUTE_GETTER(uint8_t, num_macros)
    VT_INDEXED_GETTER(uint16_t, child_objects_val, child_objects[i].get())
    VT_EVENT_MACRO_GETTERS(event_macro)

private:
    void init_lists();

    Attribute_uint16 width;
    Attribute_uint16 height;
    Attribute_object_id variable_reference;
    Attribute_uint8 value;
    Attribute_list_len<uint8_t> num_list_items;
    Attribute_list_len<uint8_t> num_macros;
    Attribute_list<Attribute_object_id> child_objects;
    Attribute_list<Attribute_event_macro> event_macro;
    Attribute* aid_table_storage[5 + 1];
    Attribute* every_table_storage[8 + 1];
};

}
}

#endif
