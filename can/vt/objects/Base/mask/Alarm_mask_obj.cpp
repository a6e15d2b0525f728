#include "can/vt/objects/Base/mask/Alarm_mask_obj.h"

namespace VT::Base {

Alarm_mask_obj::Alarm_mask_obj(unsigned short id, const char* name, unsigned char bg, unsigned short skm,
                               unsigned char prio, unsigned char signal, unsigned char n_objects,
                               unsigned char n_macros, Attribute_object_placement* placements,
                               Attribute_event_macro* macros)
    : VT_obj(id, TYPE_ALARM_MASK, tables, 0, &event_macro, name)
{
    set_values(every_attributes(), bg, skm, prio, signal, n_objects, n_macros, placements, macros);
    init_lists();
}

void Alarm_mask_obj::set_soft_key_mask(unsigned short id)
{
    const Lock guard(*this);
    // The name the old mask was referenced by no longer applies.
    soft_key_mask.set_null();
    soft_key_mask = id;
}

}
