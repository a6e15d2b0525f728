#ifndef CAN_VT_OBJECTS_ATTRIBUTE_H
#define CAN_VT_OBJECTS_ATTRIBUTE_H

#include <ostream>

#include "can/iso/objects/Iso_attribute.h"
#include "can/vt/objects/Serialisation_limits.h"
#include "can/vt/objects/Spec_node.h"

namespace VT {

// Base of every VT attribute: adds the type code, description input and the limits-aware serialise.
class Attribute : public Iso::Attribute
{
public:
    enum atype {
        ATTR_UINT8 = 0,
        ATTR_UINT16 = 1,
        ATTR_UINT32 = 2,
        ATTR_UINT64 = 3,
        ATTR_INT8 = 4,
        ATTR_INT16 = 5,
        ATTR_INT32 = 6,
        ATTR_INT64 = 7,
        ATTR_FLOAT = 8,
        ATTR_COLOUR = 9,
        ATTR_LIST = 10,
        ATTR_ARRAY_UINT8 = 11,
        ATTR_UNUSED_12 = 12,
        ATTR_ARRAY_CHAR = 13,
        ATTR_ARRAY_OBJECT_ID = 14,
        ATTR_ARRAY_ARGB = 15,
        ATTR_EVENT_MACRO = 16,
        ATTR_LIST_LEN = 17,
        ATTR_OBJECT_PLACEMENT = 18,
        ATTR_POINT = 19,
        ATTR_CODE_PLANE_RANGESET = 20,
        ATTR_CODE_PLANE_RANGE = 21,
        ATTR_LANG = 22,
        ATTR_OBJECT_ID = 23,
        ATTR_IDENTIFIER = 24,
        ATTR_EDITABLE_OBJECT = 25,
        ATTR_LABELREF = 26
    };

    using Iso::Attribute::Attribute;
    using Iso::Attribute::serialise;

    // "Type: <code>\tName: <name>", no indentation, no line end.
    void print_basic(std::ostream& os, int indent) const override;
    virtual atype get_type() const = 0;
    // Reads the attribute's value from a description node; nonzero when the node supplied one.
    virtual int _set_by_spec(Spec_node* spec_node, scale_area_t area) = 0;
    // Serialise for a terminal; attributes whose form depends on the terminal override it.
    virtual int serialise(const Serialisation_limits* limits, int offset, uint8_t* buf, int len) const;

protected:
    // Writes the low `width` bytes of `bits`, least significant first, from byte `offset` of the
    // value on and at most `len` of them; returns how many were written.
    static int write_le(uint64_t bits, int width, int offset, uint8_t* buf, int len)
    {
        if (offset == 0 && len >= width) {
            for (int i = 0; i < width; ++i)
                buf[i] = uint8_t(bits >> (8 * i));
            return width;
        }
        if (len < 1 || offset < 0 || offset >= width)
            return 0;
        int written = 0;
        for (int i = offset; i < width && written < len; ++i)
            buf[written++] = uint8_t(bits >> (8 * i));
        return written;
    }
};

// Writes `indent` levels of two blanks.
void print_indent(std::ostream& os, int indent);
// Writes `indent` levels of four blanks (generated source).
void code_indent_attr(std::ostream& os, int indent);

}

#endif
