#include "can/vt/objects/Base/aux/Auxiliary_type2_control_designator_obj.h"

namespace VT {
namespace Base {

Auxiliary_type2_control_designator_obj::Auxiliary_type2_control_designator_obj(uint16_t id, const char* name,
                                                                               uint8_t pointer_type_,
                                                                               uint16_t auxiliary_object_id_)
    : VT_obj(id, TYPE_AUXILIARY_TYPE2_CONTROL_DESIGNATOR, 3, aid_table_storage, 2, every_table_storage, 0, nullptr,
             name),
      pointer_type(0, 3, pointer_type_, "pointer_type"),
      auxiliary_object_id(auxiliary_object_id_, "auxiliary_object_id")
{
    init_lists();
}

Auxiliary_type2_control_designator_obj::Auxiliary_type2_control_designator_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_AUXILIARY_TYPE2_CONTROL_DESIGNATOR, 3, aid_table_storage, 2, every_table_storage, NO_NAME,
             NULL_ID),
      pointer_type(0, 3, 0, "pointer_type"), auxiliary_object_id(NULL_ID, "auxiliary_object_id")
{
    init_lists();
}

void Auxiliary_type2_control_designator_obj::init_lists()
{
    set_table(aid_table_storage,
              {class_type_attribute<TYPE_AUXILIARY_TYPE2_CONTROL_DESIGNATOR>(), &pointer_type, &auxiliary_object_id});
    set_table(every_table_storage, {&pointer_type, &auxiliary_object_id});
}

}
}
