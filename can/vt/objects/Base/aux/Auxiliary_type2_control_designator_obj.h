#ifndef CAN_VT_OBJECTS_BASE_AUX_AUXILIARY_TYPE2_CONTROL_DESIGNATOR_OBJ_H
#define CAN_VT_OBJECTS_BASE_AUX_AUXILIARY_TYPE2_CONTROL_DESIGNATOR_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Auxiliary control designator object pointer (type 33): points at an auxiliary function or
// input, or at what is assigned to it, for the pointer type given.
class Auxiliary_type2_control_designator_obj : public VT_obj
{
    Attribute_uint8 pointer_type{0, 3, 0, "pointer_type"};
    Attribute_object_id auxiliary_object_id{65535, "auxiliary_object_id"};

public:
    Auxiliary_type2_control_designator_obj(uint16_t id, const char* name, uint8_t pointer_type,
                                           uint16_t auxiliary_object_id);
    explicit Auxiliary_type2_control_designator_obj(Spec_node* node)
        : VT_obj(node, TYPE_AUXILIARY_TYPE2_CONTROL_DESIGNATOR, tables)
    {
        init_lists();
    }

    VT_ATTRIBUTE_GETTERS(pointer_type, auxiliary_object_id)

    VT_OBJECT_TABLES(TYPE_AUXILIARY_TYPE2_CONTROL_DESIGNATOR, (pointer_type, auxiliary_object_id),
                     (pointer_type, auxiliary_object_id))
};

}

#endif
