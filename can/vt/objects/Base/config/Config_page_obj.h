#ifndef CAN_VT_OBJECTS_BASE_CONFIG_CONFIG_PAGE_OBJ_H
#define CAN_VT_OBJECTS_BASE_CONFIG_CONFIG_PAGE_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Configuration page (type 246, extended type 3): a page of the configuration menu with its
// title, help and diagram, holding items, tables and drawn objects.
class Config_page_obj : public VT_obj
{
    Attribute_uint8 extended_type{EXTENDED_TYPE, EXTENDED_TYPE, EXTENDED_TYPE, "extended_type"};
    Attribute_object_id label{65535, "label"};
    Attribute_object_id icon{65535, "icon"};
    Attribute_uint8 options{0, 7, 0, "options"};
    Attribute_object_id title{65535, "title"};
    Attribute_object_id help{65535, "help"};
    Attribute_object_id diagram{65535, "diagram"};
    Attribute_list_len<uint8_t> num_child_objects{"num_child_objects", &child_objects};
    Attribute_list_len<uint8_t> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_object_id> child_objects{"child_objects"};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    static constexpr uint8_t EXTENDED_TYPE = 3;

    Config_page_obj(uint16_t id, const char* name, uint8_t extended_type, uint16_t label, uint16_t icon,
                    uint8_t options, uint16_t title, uint16_t help, uint16_t diagram, uint8_t num_child_objects,
                    uint8_t num_macros, Attribute_object_id* children, Attribute_event_macro* macros);
    explicit Config_page_obj(Spec_node* node) : VT_obj(node, TYPE_CONFIG, tables) { init_lists(); }
    uint8_t _get_extended_type() const override { return EXTENDED_TYPE; }
    uint8_t get_extended_type() const override { return EXTENDED_TYPE; }

    VT_ATTRIBUTE_GETTERS(label, icon, options, title, help, diagram, num_child_objects, num_macros)
    VT_INDEXED_GETTER(uint16_t, child_objects_val, child_objects[i].get())
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_CONFIG, (extended_type, label, icon, options, title, help, diagram),
                     (extended_type, label, icon, options, title, help, diagram, num_child_objects, num_macros,
                      child_objects, event_macro))
};

}

#endif
