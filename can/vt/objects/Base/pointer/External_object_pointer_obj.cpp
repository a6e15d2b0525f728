#include "can/vt/objects/Base/pointer/External_object_pointer_obj.h"

namespace VT::Base {

External_object_pointer_obj::External_object_pointer_obj(uint16_t id, const char* name,
                                                         unsigned short default_object_id_v,
                                                         unsigned short external_reference_name_id_v,
                                                         unsigned short value_v)
    : VT_obj(id, TYPE_EXTERNAL_OBJECT_POINTER, tables, 0, nullptr, name)
{
    set_values(every_attributes(), default_object_id_v, external_reference_name_id_v, value_v);
    init_lists();
}

}
