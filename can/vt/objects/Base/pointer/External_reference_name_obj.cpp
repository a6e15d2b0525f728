#include "can/vt/objects/Base/pointer/External_reference_name_obj.h"

namespace VT::Base {

External_reference_name_obj::External_reference_name_obj(uint16_t id, const char* name, unsigned char options_v,
                                                         unsigned int name0_v, unsigned int name1_v)
    : VT_obj(id, TYPE_EXTERNAL_REFERENCE_NAME, tables, 0, nullptr, name)
{
    set_values(every_attributes(), options_v, name0_v, name1_v);
    init_lists();
}

}
