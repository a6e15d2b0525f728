#include "can/vt/objects/Base/mask/Alarm_mask_obj.h"

namespace VT {
namespace Base {

Alarm_mask_obj::Alarm_mask_obj(unsigned short id, const char* name, unsigned char bg, unsigned short skm,
                               unsigned char prio, unsigned char signal, unsigned char n_objects,
                               unsigned char n_macros, Attribute_object_placement* placements,
                               Attribute_event_macro* macros)
    : VT_obj(id, TYPE_ALARM_MASK, 5, aid_table_storage, 8, every_table_storage, 0, &event_macro, name),
      background_colour(bg, "background_colour"), soft_key_mask(skm, "soft_key_mask"),
      priority(0, 2, prio, "priority"), acoustic_signal(0, 3, signal, "acoustic_signal"),
      child_location("child_location", placements, n_objects), event_macro("event_macro", macros, n_macros)
{
    init_lists();
}

Alarm_mask_obj::Alarm_mask_obj(Spec_node* spec_node)
    : VT_obj(spec_node, TYPE_ALARM_MASK, 5, aid_table_storage, 8, every_table_storage, NO_NAME, NULL_ID)
{
    init_lists();
}

void Alarm_mask_obj::init_lists()
{
    set_table(aid_table_storage, {class_type_attribute<TYPE_ALARM_MASK>(), &background_colour, &soft_key_mask,
                                  &priority, &acoustic_signal});
    set_table(every_table_storage, {&background_colour, &soft_key_mask, &priority, &acoustic_signal, &num_objects,
                                    &num_macros, &child_location, &event_macro});
}

void Alarm_mask_obj::set_soft_key_mask(unsigned short id)
{
    lock();
    // The name the old mask was referenced by no longer applies.
    soft_key_mask.set_null();
    soft_key_mask = id;
    unlock();
}

}
}
