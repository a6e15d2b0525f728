#include "can/vt/objects/Attribute.h"

namespace VT {

void Attribute::print_basic(std::ostream& os, int) const
{
    os << "Type: " << int(get_type()) << "\tName: " << name;
}

int Attribute::serialise(const Serialisation_limits*, int offset, uint8_t* buf, int len) const
{
    return serialise(offset, buf, len);
}

void print_indent(std::ostream& os, int indent)
{
    for (int i = 0; i < indent; ++i)
        os << "  ";
}

void code_indent_attr(std::ostream& os, int indent)
{
    for (int i = 0; i < indent; ++i)
        os << "    ";
}

}
