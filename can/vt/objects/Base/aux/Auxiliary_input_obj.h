#ifndef CAN_VT_OBJECTS_BASE_AUX_AUXILIARY_INPUT_OBJ_H
#define CAN_VT_OBJECTS_BASE_AUX_AUXILIARY_INPUT_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Auxiliary input, type 1 (type 30): a physical input that an operator assigns to an
// auxiliary function. Nothing beyond AID 0 is addressable.
class Auxiliary_input_obj : public VT_obj
{
    Attribute_colour background_colour{0, "background_colour"};
    Attribute_uint8 function_type{0, 255, 0, "function_type"};
    // Input ids stop at 250.
    Attribute_uint8 input_id{0, 250, 0, "input_id"};
    Attribute_list_len<uint8_t> num_objects{"num_objects", &child_location};
    Attribute_list<Attribute_object_placement> child_location{"child_location"};

public:
    Auxiliary_input_obj(uint16_t id, const char* name, uint8_t background_colour, uint8_t function_type,
                        uint8_t input_id, uint8_t num_objects, Attribute_object_placement* objects);
    explicit Auxiliary_input_obj(Spec_node* node) : VT_obj(node, TYPE_AUXILIARY_INPUT, tables) { init_lists(); }

    VT_ATTRIBUTE_GETTERS(background_colour, function_type, input_id, num_objects)
    VT_CHILD_LOCATION_GETTERS(child_location)

    VT_OBJECT_TABLES(TYPE_AUXILIARY_INPUT, (),
                     (background_colour, function_type, input_id, num_objects, child_location))
};

}

#endif
