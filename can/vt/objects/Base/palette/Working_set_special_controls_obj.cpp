#include "can/vt/objects/Base/palette/Working_set_special_controls_obj.h"

namespace VT::Base {

Working_set_special_controls_obj::Working_set_special_controls_obj(uint16_t id, const char* name, uint16_t num_bytes_,
                                                                   uint8_t* bytes_)
    : VT_obj(id, TYPE_WORKING_SET_SPECIAL_CONTROLS, tables, 0, nullptr, name)
{
    set_values(every_attributes(), num_bytes_, bytes_);
    init_lists();
}

}
