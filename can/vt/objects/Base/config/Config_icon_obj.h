#ifndef CAN_VT_OBJECTS_BASE_CONFIG_CONFIG_ICON_OBJ_H
#define CAN_VT_OBJECTS_BASE_CONFIG_CONFIG_ICON_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Configuration icon (type 246, extended type 1): an icon of the configuration menu built
// from placed pictures.
class Config_icon_obj : public VT_obj
{
    Attribute_uint8 extended_type{EXTENDED_TYPE, EXTENDED_TYPE, EXTENDED_TYPE, "extended_type"};
    Attribute_list_len<uint8_t> num_objects{"num_objects", &child_location};
    Attribute_list_len<uint8_t> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_object_placement> child_location{"child_location"};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    static constexpr uint8_t EXTENDED_TYPE = 1;

    Config_icon_obj(uint16_t id, const char* name, uint8_t extended_type, uint8_t num_objects, uint8_t num_macros,
                    Attribute_object_placement* objects, Attribute_event_macro* macros);
    explicit Config_icon_obj(Spec_node* node) : VT_obj(node, TYPE_CONFIG, tables) { init_lists(); }
    uint8_t _get_extended_type() const override { return EXTENDED_TYPE; }
    uint8_t get_extended_type() const override { return EXTENDED_TYPE; }

    VT_ATTRIBUTE_GETTERS(num_objects, num_macros)
    VT_CHILD_LOCATION_GETTERS(child_location)
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_CONFIG, (extended_type),
                     (extended_type, num_objects, num_macros, child_location, event_macro))
};

}

#endif
