#ifndef CAN_VT_OBJECTS_BASE_CONFIG_CONFIG_ICON_OBJ_H
#define CAN_VT_OBJECTS_BASE_CONFIG_CONFIG_ICON_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT {
namespace Base {

// Configuration icon (type 246, extended type 1): an icon of the configuration menu built
// from placed pictures.
class Config_icon_obj : public VT_obj
{
public:
    static constexpr uint8_t EXTENDED_TYPE = 1;

    Config_icon_obj(uint16_t id, const char* name, uint8_t extended_type, uint8_t num_objects, uint8_t num_macros,
                    Attribute_object_placement* objects, Attribute_event_macro* macros);
    explicit Config_icon_obj(Spec_node* spec_node);
    type_t get_ctype() const override { return TYPE_CONFIG; }
    uint8_t _get_extended_type() const override { return EXTENDED_TYPE; }
    uint8_t get_extended_type() const override { return EXTENDED_TYPE; }

    VT_ATTRIBUTE_GETTER(uint8_t, num_objects)
    VT_ATTRIBUTE_GETTER(uint8_t, num_macros)
    VT_CHILD_LOCATION_GETTERS(child_location)
    VT_EVENT_MACRO_GETTERS(event_macro)

private:
    void init_lists();

    Attribute_uint8 extended_type;
    Attribute_list_len<uint8_t> num_objects{"num_objects", &child_location};
    Attribute_list_len<uint8_t> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_object_placement> child_location;
    Attribute_list<Attribute_event_macro> event_macro;
    Attribute* aid_table_storage[2 + 1];
    Attribute* every_table_storage[5 + 1];
};

}
}

#endif
