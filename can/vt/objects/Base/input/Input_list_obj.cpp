#include "can/vt/objects/Base/input/Input_list_obj.h"

namespace VT::Base {

Input_list_obj::Input_list_obj(uint16_t id, const char* name, unsigned short width_v, unsigned short height_v,
                               unsigned short variable_reference_v, unsigned char value_v,
                               unsigned char num_list_items_v, unsigned char options2_v, unsigned char num_macros_v,
                               Attribute_object_id* items, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_INPUT_LIST, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), width_v, height_v, variable_reference_v, value_v, num_list_items_v, options2_v,
               num_macros_v, items, macros);
    init_lists();
}

}
