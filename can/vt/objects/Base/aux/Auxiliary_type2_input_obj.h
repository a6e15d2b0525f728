#ifndef CAN_VT_OBJECTS_BASE_AUX_AUXILIARY_TYPE2_INPUT_OBJ_H
#define CAN_VT_OBJECTS_BASE_AUX_AUXILIARY_TYPE2_INPUT_OBJ_H

#include "can/vt/objects/Base/aux/Auxiliary_type2_obj.h"

namespace VT::Base {

// Auxiliary type 2 input (type 32): a physical input that an operator assigns to auxiliary
// functions; its designator is drawn from the placed children.
class Auxiliary_type2_input_obj : public Auxiliary_type2_obj<VT_obj_type::TYPE_AUXILIARY_TYPE2_INPUT>
{
public:
    using Auxiliary_type2_obj::Auxiliary_type2_obj;
};

}

#endif
