#include "can/vt/objects/Base/field/Named_colour_obj.h"

namespace VT::Base {

Named_colour_obj::Named_colour_obj(uint16_t id, const char* name, uint16_t num_refs_,
                                   Attribute_identifier<unsigned char>* refs_, uint16_t pictures_)
    : VT_obj(id, TYPE_NAMED_COLOUR, tables, 0, nullptr, name)
{
    set_values(every_attributes(), num_refs_, refs_, pictures_);
    init_lists();
}

}
