#include "can/vt/objects/Base/mask/Data_mask_obj.h"

namespace VT {
namespace Base {

Data_mask_obj::Data_mask_obj(unsigned short id, const char* name, unsigned char bg, unsigned short skm,
                             unsigned char n_objects, unsigned char n_macros, Attribute_object_placement* placements,
                             Attribute_event_macro* macros)
    : VT_obj(id, TYPE_DATA_MASK, 3, aid_table_storage, 6, every_table_storage, 0, &event_macro, name),
      background_colour(bg, "background_colour"), soft_key_mask(skm, "soft_key_mask"),
      child_location("child_location", placements, n_objects), event_macro("event_macro", macros, n_macros)
{
    init_lists();
}

Data_mask_obj::Data_mask_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_DATA_MASK, 3, aid_table_storage, 6, every_table_storage, NO_NAME, NULL_ID)
{
    init_lists();
}

void Data_mask_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_DATA_MASK>(), &background_colour, &soft_key_mask});
    set_table(every_table_storage,
              {&background_colour, &soft_key_mask, &num_objects, &num_macros, &child_location, &event_macro});
}

void Data_mask_obj::set_soft_key_mask(unsigned short id)
{
    lock();
    // The name the old mask was referenced by no longer applies.
    soft_key_mask.set_null();
    soft_key_mask = id;
    unlock();
}

}
}
