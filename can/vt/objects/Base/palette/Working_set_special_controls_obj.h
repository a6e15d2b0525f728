#ifndef CAN_VT_OBJECTS_BASE_PALETTE_WORKING_SET_SPECIAL_CONTROLS_OBJ_H
#define CAN_VT_OBJECTS_BASE_PALETTE_WORKING_SET_SPECIAL_CONTROLS_OBJ_H

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Working set special controls (type 47): content carried as an opaque byte string.
class Working_set_special_controls_obj : public VT_obj
{
    // Named num_bytes_count here: num_bytes() is the object's size.
    Attribute_list_len<uint16_t> num_bytes_count{"num_bytes", &bytes};
    Attribute_array_uint8 bytes{"bytes"};

public:
    // Borrows `bytes` (num_bytes entries); the caller keeps it alive.
    Working_set_special_controls_obj(uint16_t id, const char* name, uint16_t num_bytes, uint8_t* bytes);
    explicit Working_set_special_controls_obj(Spec_node* node) : VT_obj(node, TYPE_WORKING_SET_SPECIAL_CONTROLS, tables)
    {
        init_lists();
    }

    VT_GETTER(uint16_t, num_bytes, bytes.get_length())
    VT_INDEXED_GETTER(uint8_t, bytes, bytes[i])

    VT_OBJECT_TABLES(TYPE_WORKING_SET_SPECIAL_CONTROLS, (), (num_bytes_count, bytes))
};

}

#endif
