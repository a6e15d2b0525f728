#include "can/vt/objects/Base/pointer/Object_labelref_list_obj.h"

namespace VT::Base {

Object_labelref_list_obj::Object_labelref_list_obj(uint16_t id, const char* name, unsigned short num_labelrefs_v,
                                                   Attribute_labelref* labelrefs_v)
    : VT_obj(id, TYPE_OBJECT_LABELREF_LIST, tables, 0, nullptr, name)
{
    set_values(every_attributes(), num_labelrefs_v, labelrefs_v);
    init_lists();
}

}
