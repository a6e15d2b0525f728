#ifndef CAN_VT_OBJECTS_BASE_CONFIG_CONFIG_ITEM_OBJ_H
#define CAN_VT_OBJECTS_BASE_CONFIG_CONFIG_ITEM_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// Configuration item (type 246, extended type 4): one setting of a page, shown with its label,
// icon, units and help; what it shows is the single "content" object.
class Config_item_obj : public VT_obj
{
public:
    static constexpr uint8_t EXTENDED_TYPE = 4;

    Config_item_obj(uint16_t id, const char* name, uint8_t extended_type, uint16_t label, uint16_t icon,
                    uint16_t units, uint16_t help, uint16_t content, uint8_t options, uint8_t num_macros,
                    Attribute_event_macro* macros);
    explicit Config_item_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_CONFIG; }
    uint8_t _get_extended_type() const override { return EXTENDED_TYPE; }
    uint8_t get_extended_type() const override { return EXTENDED_TYPE; }

    VT_ATTRIBUTE_GETTER(uint16_t, label)
    VT_ATTRIBUTE_GETTER(uint16_t, icon)
    VT_ATTRIBUTE_GETTER(uint16_t, units)
    VT_ATTRIBUTE_GETTER(uint16_t, help)
    VT_ATTRIBUTE_GETTER(uint16_t, content)
    VT_ATTRIBUTE_GETTER(uint8_t, options)
    VT_ATTRIBUTE_GETTER(uint8_t, num_macros)
    VT_EVENT_MACRO_GETTERS(event_macro)

private:
    void init_lists();

    Attribute_uint8 extended_type;
    Attribute_object_id label;
    Attribute_object_id icon;
    Attribute_object_id units;
    Attribute_object_id help;
    Attribute_object_id content;
    Attribute_uint8 options;
    Attribute_list_len<uint8_t> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_event_macro> event_macro;
    Attribute* aid_table_storage[8 + 1];
    Attribute* every_table_storage[9 + 1];
};

}
}

#endif
