#ifndef CAN_VT_OBJECTS_BASE_AUX_AUXILIARY_FUNCTION_OBJ_H
#define CAN_VT_OBJECTS_BASE_AUX_AUXILIARY_FUNCTION_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// Auxiliary function, type 1 (type 29): a function of the working set that an operator can
// assign to an auxiliary input; its designator is drawn from the placed children.
// Nothing beyond AID 0 is addressable.
class Auxiliary_function_obj : public VT_obj
{
public:
    Auxiliary_function_obj(uint16_t id, const char* name, uint8_t background_colour, uint8_t function_type,
                           uint8_t num_objects, Attribute_object_placement* objects);
    explicit Auxiliary_function_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_AUXILIARY_FUNCTION; }

    VT_ATTRIBUTE_GETTER(uint8_t, background_colour)
    VT_ATTRIBUTE_GETTER(uint8_t, function_type)
    VT_ATTRIBUTE_GETTER(uint8_t, num_objects)
    VT_CHILD_LOCATION_GETTERS(child_location)

private:
    void init_lists();

    Attribute_colour background_colour;
    Attribute_uint8 function_type;
    Attribute_list_len<uint8_t> num_objects{"num_objects", &child_location};
    Attribute_list<Attribute_object_placement> child_location;
    Attribute* aid_table_storage[1 + 1];
    Attribute* every_table_storage[4 + 1];
};

}
}

#endif
