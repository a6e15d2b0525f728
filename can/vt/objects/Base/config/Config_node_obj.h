#ifndef CAN_VT_OBJECTS_BASE_CONFIG_CONFIG_NODE_OBJ_H
#define CAN_VT_OBJECTS_BASE_CONFIG_CONFIG_NODE_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Configuration node (type 246, extended type 2): a branch of the configuration menu tree,
// holding further nodes and pages.
class Config_node_obj : public VT_obj
{
    Attribute_uint8 extended_type{EXTENDED_TYPE, EXTENDED_TYPE, EXTENDED_TYPE, "extended_type"};
    Attribute_object_id label{65535, "label"};
    Attribute_object_id icon{65535, "icon"};
    Attribute_uint8 options{0, 7, 0, "options"};
    Attribute_list_len<uint8_t> num_child_objects{"num_child_objects", &child_objects};
    Attribute_list_len<uint8_t> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_object_id> child_objects{"child_objects"};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    static constexpr uint8_t EXTENDED_TYPE = 2;

    Config_node_obj(uint16_t id, const char* name, uint8_t extended_type, uint16_t label, uint16_t icon,
                    uint8_t options, uint8_t num_child_objects, uint8_t num_macros, Attribute_object_id* children,
                    Attribute_event_macro* macros);
    explicit Config_node_obj(Spec_node* node) : VT_obj(node, TYPE_CONFIG, tables) { init_lists(); }
    uint8_t _get_extended_type() const override { return EXTENDED_TYPE; }
    uint8_t get_extended_type() const override { return EXTENDED_TYPE; }

    VT_ATTRIBUTE_GETTERS(label, icon, options, num_child_objects, num_macros)
    VT_INDEXED_GETTER(uint16_t, child_objects_val, child_objects[i].get())
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_CONFIG, (extended_type, label, icon, options),
                     (extended_type, label, icon, options, num_child_objects, num_macros, child_objects, event_macro))
};

}

#endif
