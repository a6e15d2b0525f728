#include "can/vt/objects/Base/pointer/Object_pointer_base_obj.h"

namespace VT::Base {

Object_pointer_base_obj::Object_pointer_base_obj(uint16_t id, const char* name, unsigned short value_v)
    : VT_obj(id, TYPE_OBJECT_POINTER, tables, 0, nullptr, name)
{
    set_values(every_attributes(), value_v);
    init_lists();
}

}
