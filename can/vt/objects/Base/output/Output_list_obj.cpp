#include "can/vt/objects/Base/output/Output_list_obj.h"

namespace VT::Base {

Output_list_obj::Output_list_obj(uint16_t id, const char* name, unsigned short width_v, unsigned short height_v,
                                 unsigned short variable_reference_v, unsigned char value_v,
                                 unsigned char num_list_items_v, unsigned char num_macros_v, Attribute_object_id* items,
                                 Attribute_event_macro* macros)
    : VT_obj(id, TYPE_OUTPUT_LIST, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), width_v, height_v, variable_reference_v, value_v, num_list_items_v, num_macros_v,
               items, macros);
    init_lists();
}

}
