#ifndef CAN_VT_OBJECTS_BASE_CONFIG_CONFIG_TABLE_OBJ_H
#define CAN_VT_OBJECTS_BASE_CONFIG_CONFIG_TABLE_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Configuration table (type 246, extended type 5): configuration items laid out in rows and
// columns.
class Config_table_obj : public VT_obj
{
    Attribute_uint8 extended_type{EXTENDED_TYPE, EXTENDED_TYPE, EXTENDED_TYPE, "extended_type"};
    Attribute_uint8 options{0, 7, 0, "options"};
    Attribute_uint8 num_rows{0, 255, 0, "num_rows"};
    Attribute_uint8 num_columns{0, 255, 0, "num_columns"};
    // A flag (0 or 1) despite its name.
    Attribute_uint8 num_tabs{0, 1, 0, "num_tabs"};
    Attribute_list_len<uint8_t> num_child_objects{"num_child_objects", &child_objects};
    Attribute_list_len<uint8_t> num_macros{"num_macros", &event_macro};
    Attribute_list<Attribute_object_id> child_objects{"child_objects"};
    Attribute_list<Attribute_event_macro> event_macro{"event_macro"};

public:
    static constexpr uint8_t EXTENDED_TYPE = 5;

    Config_table_obj(uint16_t id, const char* name, uint8_t extended_type, uint8_t options, uint8_t num_rows,
                     uint8_t num_columns, uint8_t num_tabs, uint8_t num_child_objects, uint8_t num_macros,
                     Attribute_object_id* children, Attribute_event_macro* macros);
    explicit Config_table_obj(Spec_node* node) : VT_obj(node, TYPE_CONFIG, tables) { init_lists(); }
    uint8_t _get_extended_type() const override { return EXTENDED_TYPE; }
    uint8_t get_extended_type() const override { return EXTENDED_TYPE; }

    VT_ATTRIBUTE_GETTERS(options, num_rows, num_columns, num_tabs, num_child_objects, num_macros)
    VT_INDEXED_GETTER(uint16_t, child_objects_val, child_objects[i].get())
    VT_EVENT_MACRO_GETTERS(event_macro)

    VT_OBJECT_TABLES(TYPE_CONFIG, (extended_type, options, num_rows, num_columns, num_tabs),
                     (extended_type, options, num_rows, num_columns, num_tabs, num_child_objects, num_macros,
                      child_objects, event_macro))
};

}

#endif
