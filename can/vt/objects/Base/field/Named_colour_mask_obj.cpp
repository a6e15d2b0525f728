#include "can/vt/objects/Base/field/Named_colour_mask_obj.h"

namespace VT::Base {

Named_colour_mask_obj::Named_colour_mask_obj(uint16_t id, const char* name, uint8_t num_pictures_,
                                             uint16_t data_length_, Attribute_identifier<unsigned short>* pictures_,
                                             uint8_t* data_)
    : VT_obj(id, TYPE_NAMED_COLOUR_MASK, tables, 0, nullptr, name)
{
    set_values(every_attributes(), num_pictures_, data_length_, pictures_, data_);
    init_lists();
}

}
