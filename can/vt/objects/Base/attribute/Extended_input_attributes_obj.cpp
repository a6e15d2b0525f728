#include "can/vt/objects/Base/attribute/Extended_input_attributes_obj.h"

namespace VT::Base {

Extended_input_attributes_obj::Extended_input_attributes_obj(unsigned short id, const char* name,
                                                             unsigned char validation, unsigned char n_sets,
                                                             Attribute_code_plane_rangeset* sets)
    : VT_obj(id, TYPE_EXTENDED_INPUT_ATTRIBUTES, tables, 0, nullptr, name)
{
    set_values(every_attributes(), validation, n_sets, sets);
    init_lists();
}

}
