#include "can/vt/objects/Base/aux/Auxiliary_type2_control_designator_obj.h"

namespace VT::Base {

Auxiliary_type2_control_designator_obj::Auxiliary_type2_control_designator_obj(uint16_t id, const char* name,
                                                                               uint8_t pointer_type_,
                                                                               uint16_t auxiliary_object_id_)
    : VT_obj(id, TYPE_AUXILIARY_TYPE2_CONTROL_DESIGNATOR, tables, 0, nullptr, name)
{
    set_values(every_attributes(), pointer_type_, auxiliary_object_id_);
    init_lists();
}

}
