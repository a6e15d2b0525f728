#include "can/iso/objects/Iso_attribute.h"

namespace Iso {

Attribute::~Attribute() = default;

void Attribute::get_code_def(const char*, std::ostream&, int) {}
void Attribute::get_code_init(const char*, std::ostream&, int) {}
void Attribute::get_code_valref(const char*, std::ostream&, int) {}
void Attribute::get_code_body(const char*, std::ostream&, int) {}

void Attribute::print_me(std::ostream& os, int indent) const
{
    for (int i = 0; i < indent; ++i)
        os << "  ";
    print_basic(os, indent);
    os << std::endl;
}

}
