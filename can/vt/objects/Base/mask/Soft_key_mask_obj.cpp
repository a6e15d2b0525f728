#include "can/vt/objects/Base/mask/Soft_key_mask_obj.h"

namespace VT {
namespace Base {

Soft_key_mask_obj::Soft_key_mask_obj(unsigned short id, const char* name, unsigned char bg, unsigned char n_objects,
                                     unsigned char n_macros, Attribute_object_id* keys, Attribute_event_macro* macros)
    : VT_obj(id, TYPE_SOFT_KEY_MASK, 2, aid_table_storage, 5, every_table_storage, 0, &event_macro, name),
      background_colour(bg, "background_colour"), child_objects("child_objects", keys, n_objects),
      event_macro("event_macro", macros, n_macros)
{
    init_lists();
}

Soft_key_mask_obj::Soft_key_mask_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_SOFT_KEY_MASK, 2, aid_table_storage, 5, every_table_storage, NO_NAME, NULL_ID)
{
    init_lists();
}

void Soft_key_mask_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_SOFT_KEY_MASK>(), &background_colour});
    set_table(every_table_storage, {&background_colour, &num_objects, &num_macros, &child_objects, &event_macro});
}

bool Soft_key_mask_obj::__set_by_spec(scale_area_t area)
{
    return VT_obj::__set_by_spec(area);
}

}
}
