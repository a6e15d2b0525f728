#ifndef CAN_VT_OBJECTS_BASE_POINTER_MACRO_OBJ_H
#define CAN_VT_OBJECTS_BASE_POINTER_MACRO_OBJ_H

#include <ostream>

#include "can/vt/objects/Object_class.h"

namespace VT::Base {

// Macro (type 28): a run of command bytes, kept as they are (not parsed here).
class Macro_obj : public VT_obj
{
    Attribute_list_len<uint16_t> byte_count{"num_bytes", &bytes};
    Attribute_array_uint8 bytes{"bytes"};

public:
    // Borrows `bytes` (num_bytes bytes); the caller keeps it alive.
    Macro_obj(uint16_t id, const char* name, unsigned short num_bytes, unsigned char* bytes);
    explicit Macro_obj(Spec_node* node) : VT_obj(node, TYPE_MACRO, tables) { init_lists(); }
    // The generic print, then the command bytes in hex on one line; `depth` is the print depth.
    void __print_me(std::ostream& os, int depth) const override;

    VT_GETTER(uint16_t, num_bytes, bytes.get_length())
    VT_INDEXED_GETTER(uint8_t, bytes, bytes[i])

    VT_OBJECT_TABLES(TYPE_MACRO, (), (byte_count, bytes))
};

}

#endif
