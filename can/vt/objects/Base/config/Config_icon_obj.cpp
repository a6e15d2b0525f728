#include "can/vt/objects/Base/config/Config_icon_obj.h"

namespace VT::Base {

Config_icon_obj::Config_icon_obj(uint16_t id, const char* name, uint8_t extended_type_, uint8_t num_objects_,
                                 uint8_t num_macros_, Attribute_object_placement* objects,
                                 Attribute_event_macro* macros)
    : VT_obj(id, TYPE_CONFIG, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), extended_type_, num_objects_, num_macros_, objects, macros);
    init_lists();
}

}
