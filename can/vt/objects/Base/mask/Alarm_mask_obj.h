#ifndef CAN_VT_OBJECTS_BASE_MASK_ALARM_MASK_OBJ_H
#define CAN_VT_OBJECTS_BASE_MASK_ALARM_MASK_OBJ_H

#include "can/vt/objects/Base/mask/Screen_mask_obj.h"
#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Alarm mask (type 2): shown in place of the data mask to raise an alarm, with a priority
// and an acoustic signal.
class Alarm_mask_obj : public VT_obj, public Screen_mask_obj
{
    Attribute_colour background_colour{0, "background_colour"};
    Attribute_object_id soft_key_mask{65535, "soft_key_mask"};
    Attribute_uint8 priority{0, 2, 0, "priority"};
    Attribute_uint8 acoustic_signal{0, 3, 0, "acoustic_signal"};
    Attribute_list_len<unsigned char> num_objects{"num_objects", &child_location};
    Attribute_list_len<unsigned char> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_object_placement> child_location{"child_location"};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    Alarm_mask_obj(unsigned short id, const char* name, unsigned char background_colour, unsigned short soft_key_mask,
                   unsigned char priority, unsigned char acoustic_signal, unsigned char num_objects,
                   unsigned char num_macros, Attribute_object_placement* child_location,
                   Attribute_event_macro* event_macro);
    explicit Alarm_mask_obj(Spec_node* node) : VT_obj(node, TYPE_ALARM_MASK, tables) { init_lists(); }

    // Shows another soft-key mask with this mask (65535: none).
    void set_soft_key_mask(unsigned short id) override;

    VT_ATTRIBUTE_GETTERS(background_colour, soft_key_mask, priority, acoustic_signal, num_objects, num_macros)
    VT_CHILD_LOCATION_GETTERS(child_location)
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_ALARM_MASK, (background_colour, soft_key_mask, priority, acoustic_signal),
                     (background_colour, soft_key_mask, priority, acoustic_signal, num_objects, num_macros,
                      child_location, event_macro))
};

}

#endif
