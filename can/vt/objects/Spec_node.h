#ifndef CAN_VT_OBJECTS_SPEC_NODE_H
#define CAN_VT_OBJECTS_SPEC_NODE_H

#include <cstdint>

#include "can/vt/objects/Serialisation_limits.h"

namespace VT {
class VT_obj;
}

// One node of a parsed pool description, implemented by the host. The library calls these
// operations by position, so their order is fixed. Getters return 0 when the node has no
// value of that name and then leave the output untouched.
class Spec_node
{
public:
    virtual ~Spec_node();
    virtual int get_uint8(uint8_t* out, const char* name) = 0;
    virtual int get_uint16(uint16_t* out, const char* name) = 0;
    virtual int get_uint32(uint32_t* out, const char* name) = 0;
    virtual int get_uint64(uint64_t* out, const char* name) = 0;
    virtual int get_int8(int8_t* out, const char* name) = 0;
    virtual int get_int16(int16_t* out, const char* name) = 0;
    virtual int get_int32(int32_t* out, const char* name) = 0;
    virtual int get_int64(int64_t* out, const char* name) = 0;
    virtual int get_float(float* out, const char* name) = 0;
    // Copies at most `size` bytes including the terminating zero; nonzero when the value exists.
    virtual int get_text(char* buf, int size, const char* name) = 0;
    // Byte length of a named value for a scale area (zero or negative: none).
    virtual int get_value_length(const char* name, VT::scale_area_t area) = 0;
    virtual bool has_value(const char* name, VT::scale_area_t area) = 0;
    virtual void reserved_14();
    // A printable description of the node (its place in the description), at most `size` bytes.
    virtual void describe(char* buf, int size) = 0;
    // Children matching a filter: a name, "!name" for every other child, null for all.
    virtual int count_children(const char* filter) = 0;
    // The index-th matching child, or null; the caller deletes it after use.
    virtual Spec_node* get_child(int index, const char* filter) = 0;
    virtual uint16_t lookup_object_id(const char* name) = 0;
    virtual VT::VT_obj* find_object(const char* name) = 0;
    // The object built from this node itself (inline definitions); none by default.
    virtual VT::VT_obj* get_object();
    virtual void reserved_21();
    virtual void reserved_22();
    // Called once before a warning about a reference to an unknown object name.
    virtual void report_unresolved() = 0;
};

#endif
