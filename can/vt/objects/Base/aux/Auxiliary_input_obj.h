#ifndef CAN_VT_OBJECTS_BASE_AUX_AUXILIARY_INPUT_OBJ_H
#define CAN_VT_OBJECTS_BASE_AUX_AUXILIARY_INPUT_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// Auxiliary input, type 1 (type 30): a physical input that an operator assigns to an
// auxiliary function. Nothing beyond AID 0 is addressable.
class Auxiliary_input_obj : public VT_obj
{
public:
    Auxiliary_input_obj(uint16_t id, const char* name, uint8_t background_colour, uint8_t function_type,
                        uint8_t input_id, uint8_t num_objects, Attribute_object_placement* objects);
    explicit Auxiliary_input_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_AUXILIARY_INPUT; }

    VT_ATTRIBUTE_GETTER(uint8_t, background_colour)
    VT_ATTRIBUTE_GETTER(uint8_t, function_type)
    VT_ATTRIBUTE_GETTER(uint8_t, input_id)
    VT_ATTRIBUTE_GETTER(uint8_t, num_objects)
    VT_CHILD_LOCATION_GETTERS(child_location)

private:
    void init_lists();

    Attribute_colour background_colour;
    Attribute_uint8 function_type;
    // Input ids stop at 250.
    Attribute_uint8 input_id;
    Attribute_list_len<uint8_t> num_objects{"num_objects", &child_location};
    Attribute_list<Attribute_object_placement> child_location;
    Attribute* aid_table_storage[1 + 1];
    Attribute* every_table_storage[5 + 1];
};

}
}

#endif
