#ifndef CAN_VT_OBJECTS_BASE_CONFIG_CONFIG_ITEM_OBJ_H
#define CAN_VT_OBJECTS_BASE_CONFIG_CONFIG_ITEM_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Configuration item (type 246, extended type 4): one setting of a page, shown with its label,
// icon, units and help; what it shows is the single "content" object.
class Config_item_obj : public VT_obj
{
    Attribute_uint8 extended_type{EXTENDED_TYPE, EXTENDED_TYPE, EXTENDED_TYPE, "extended_type"};
    Attribute_object_id label{65535, "label"};
    Attribute_object_id icon{65535, "icon"};
    Attribute_object_id units{65535, "units"};
    Attribute_object_id help{65535, "help"};
    Attribute_object_id content{65535, "content"};
    Attribute_uint8 options{0, 7, 0, "options"};
    Attribute_list_len<uint8_t> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    static constexpr uint8_t EXTENDED_TYPE = 4;

    Config_item_obj(uint16_t id, const char* name, uint8_t extended_type, uint16_t label, uint16_t icon, uint16_t units,
                    uint16_t help, uint16_t content, uint8_t options, uint8_t num_macros,
                    Attribute_event_macro* macros);
    explicit Config_item_obj(Spec_node* node) : VT_obj(node, TYPE_CONFIG, tables) { init_lists(); }
    uint8_t _get_extended_type() const override { return EXTENDED_TYPE; }
    uint8_t get_extended_type() const override { return EXTENDED_TYPE; }

    VT_ATTRIBUTE_GETTERS(label, icon, units, help, content, options, num_macros)
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_CONFIG, (extended_type, label, icon, units, help, content, options),
                     (extended_type, label, icon, units, help, content, options, num_macros, event_macro))
};

}

#endif
