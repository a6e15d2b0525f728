#ifndef CAN_VT_OBJECTS_BASE_AUX_AUXILIARY_TYPE2_INPUT_OBJ_H
#define CAN_VT_OBJECTS_BASE_AUX_AUXILIARY_TYPE2_INPUT_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// Auxiliary type 2 input (type 32): a physical input that an operator assigns to auxiliary
// functions; its designator is drawn from the placed children.
class Auxiliary_type2_input_obj : public VT_obj
{
public:
    Auxiliary_type2_input_obj(uint16_t id, const char* name, uint8_t background_colour, uint8_t function_attributes,
                              uint8_t num_objects, Attribute_object_placement* objects);
    explicit Auxiliary_type2_input_obj(Spec_node* spec);
    type_t get_ctype() const override { return TYPE_AUXILIARY_TYPE2_INPUT; }

    VT_ATTRIBUTE_GETTER(uint8_t, background_colour)
    VT_ATTRIBUTE_GETTER(uint8_t, function_attributes)
    VT_ATTRIBUTE_GETTER(uint8_t, num_objects)
    VT_CHILD_LOCATION_GETTERS(child_location)

private:
    void init_lists();

    Attribute_colour background_colour;
    Attribute_uint8 function_attributes;
    Attribute_list_len<uint8_t> num_objects{"num_objects", &child_location};
    Attribute_list<Attribute_object_placement> child_location;
    Attribute* aid_table_storage[3 + 1];
    Attribute* every_table_storage[4 + 1];
};

}
}

#endif
