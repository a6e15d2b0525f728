#ifndef CAN_VT_OBJECTS_BASE_INPUT_INPUT_LIST_OBJ_H
#define CAN_VT_OBJECTS_BASE_INPUT_INPUT_LIST_OBJ_H

#include "can/vt/objects/Base/input/Input_obj_base.h"
#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// Input list (type 10): the operator picks one of the listed objects.
class Input_list_obj : public VT_obj, public Input_obj_base
{
public:
    // Copies num_list_items entries of `items` and num_macros entries of `macros`.
    Input_list_obj(uint16_t id, const char* name, unsigned short width, unsigned short height,
                   unsigned short variable_reference, unsigned char value, unsigned char num_list_items,
                   unsigned char options2, unsigned char num_macros, Attribute_object_id* items,
                   Attribute_event_macro* macros);
    explicit Input_list_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_INPUT_LIST; }

    unsigned char get_options2() const override
    {
        lock();
        unsigned char v = _get_options2();
        unlock();
        return v;
    }
    unsigned char _get_options2() const
    {
        __check_locked();
        return options2;
    }
    // Options 2 of an input list is addressed under 15, whatever its own AID.
    unsigned char get_options2_aid() override { return 15; }
    VT_obj* get_vt_obj() override { return this; }

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
    Attribute_uint8 options2;
    Attribute_list_len<uint8_t> num_macros;
    Attribute_list<Attribute_object_id> child_objects;
    Attribute_list<Attribute_event_macro> event_macro;
    Attribute* aid_table_storage[6 + 1];
    Attribute* every_table_storage[9 + 1];
};

}
}

#endif
