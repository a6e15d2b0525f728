#include "can/vt/objects/Base/config/Config_table_obj.h"

namespace VT::Base {

Config_table_obj::Config_table_obj(uint16_t id, const char* name, uint8_t extended_type_, uint8_t options_,
                                   uint8_t num_rows_, uint8_t num_columns_, uint8_t num_tabs_,
                                   uint8_t num_child_objects_, uint8_t num_macros_, Attribute_object_id* children,
                                   Attribute_event_macro* macros)
    : VT_obj(id, TYPE_CONFIG, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), extended_type_, options_, num_rows_, num_columns_, num_tabs_, num_child_objects_,
               num_macros_, children, macros);
    init_lists();
}

}
