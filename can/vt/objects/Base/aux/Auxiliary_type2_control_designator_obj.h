#ifndef CAN_VT_OBJECTS_BASE_AUX_AUXILIARY_TYPE2_CONTROL_DESIGNATOR_OBJ_H
#define CAN_VT_OBJECTS_BASE_AUX_AUXILIARY_TYPE2_CONTROL_DESIGNATOR_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// Auxiliary control designator object pointer (type 33): points at an auxiliary function or
// input, or at what is assigned to it, for the pointer type given.
class Auxiliary_type2_control_designator_obj : public VT_obj
{
public:
    Auxiliary_type2_control_designator_obj(uint16_t id, const char* name, uint8_t pointer_type,
                                           uint16_t auxiliary_object_id);
    explicit Auxiliary_type2_control_designator_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_AUXILIARY_TYPE2_CONTROL_DESIGNATOR; }

    VT_ATTRIBUTE_GETTER(uint8_t, pointer_type)
    VT_ATTRIBUTE_GETTER(uint16_t, auxiliary_object_id)

private:
    void init_lists();

    Attribute_uint8 pointer_type;
    Attribute_object_id auxiliary_object_id;
    Attribute* aid_table_storage[3 + 1];
    Attribute* every_table_storage[2 + 1];
};

}
}

#endif
