#ifndef CAN_VT_OBJECTS_BASE_AUX_AUXILIARY_TYPE2_FUNCTION_OBJ_H
#define CAN_VT_OBJECTS_BASE_AUX_AUXILIARY_TYPE2_FUNCTION_OBJ_H

#include "can/vt/objects/Base/aux/Auxiliary_type2_obj.h"

namespace VT::Base {

// Auxiliary type 2 function (type 31): a function of the working set that an operator assigns to an
// auxiliary input; its designator is drawn from the placed children.
class Auxiliary_type2_function_obj : public Auxiliary_type2_obj<VT_obj_type::TYPE_AUXILIARY_TYPE2_FUNCTION>
{
public:
    using Auxiliary_type2_obj::Auxiliary_type2_obj;
};

}

#endif
