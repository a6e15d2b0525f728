#include "can/vt/objects/Base/variable/String_variable_obj.h"

namespace VT::Base {

String_variable_obj::String_variable_obj(uint16_t id, const char* name, uint16_t len, char* text)
    : VT_obj(id, TYPE_STRING_VARIABLE, tables, 0, nullptr, name)
{
    set_values(every_attributes(), len, text);
    init_lists();
}

}
