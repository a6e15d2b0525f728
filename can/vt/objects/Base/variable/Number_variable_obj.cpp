#include "can/vt/objects/Base/variable/Number_variable_obj.h"

namespace VT::Base {

Number_variable_obj::Number_variable_obj(uint16_t id, const char* name, uint32_t v)
    : VT_obj(id, TYPE_NUMBER_VARIABLE, tables, 0, nullptr, name)
{
    set_values(every_attributes(), v);
    init_lists();
}

}
