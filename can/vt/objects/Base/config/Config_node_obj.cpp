#include "can/vt/objects/Base/config/Config_node_obj.h"

namespace VT::Base {

Config_node_obj::Config_node_obj(uint16_t id, const char* name, uint8_t extended_type_, uint16_t label_, uint16_t icon_,
                                 uint8_t options_, uint8_t num_child_objects_, uint8_t num_macros_,
                                 Attribute_object_id* children, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_CONFIG, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), extended_type_, label_, icon_, options_, num_child_objects_, num_macros_, children,
               macros);
    init_lists();
}

}
