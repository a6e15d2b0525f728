#include "can/vt/objects/Base/pointer/External_object_definition_obj.h"

namespace VT::Base {

External_object_definition_obj::External_object_definition_obj(uint16_t id, const char* name, unsigned char options_v,
                                                               unsigned int name0_v, unsigned int name1_v,
                                                               unsigned char num_list_items_v,
                                                               Attribute_object_id* child_objects_v)
    : VT_obj(id, TYPE_EXTERNAL_OBJECT_DEFINITION, tables, 0, nullptr, name)
{
    set_values(every_attributes(), options_v, name0_v, name1_v, num_list_items_v, child_objects_v);
    init_lists();
}

}
