#include "can/vt/objects/Base/config/Config_item_obj.h"

namespace VT::Base {

Config_item_obj::Config_item_obj(uint16_t id, const char* name, uint8_t extended_type_, uint16_t label_, uint16_t icon_,
                                 uint16_t units_, uint16_t help_, uint16_t content_, uint8_t options_,
                                 uint8_t num_macros_, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_CONFIG, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), extended_type_, label_, icon_, units_, help_, content_, options_, num_macros_,
               macros);
    init_lists();
}

}
