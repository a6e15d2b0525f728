#include "can/vt/objects/Base/attribute/Input_attributes_obj.h"

namespace VT::Base {

Input_attributes_obj::Input_attributes_obj(unsigned short id, const char* name, unsigned char validation,
                                           unsigned char len, char* text, unsigned char n_macros,
                                           Attribute_event_macro* macros)
    : VT_obj(id, TYPE_INPUT_ATTRIBUTES, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), validation, len, text, n_macros, macros);
    init_lists();
}

}
