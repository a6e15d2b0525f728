#include "can/vt/objects/Base/mask/Soft_key_mask_obj.h"

namespace VT::Base {

Soft_key_mask_obj::Soft_key_mask_obj(unsigned short id, const char* name, unsigned char bg, unsigned char n_objects,
                                     unsigned char n_macros, Attribute_object_id* keys, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_SOFT_KEY_MASK, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), bg, n_objects, n_macros, keys, macros);
    init_lists();
}

bool Soft_key_mask_obj::__set_by_spec(scale_area_t area)
{
    return VT_obj::__set_by_spec(area);
}

}
