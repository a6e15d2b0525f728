#include "can/vt/objects/Attribute_numbers.h"

#include <cstring>

#include "platform/Debug_print.h"
#include "platform/Float_bytes.h"

namespace VT {

void report_offset(int offset)
{
    Debug_print::dprint("WARNING: Attribute_numbers_template::deserialise offset != 0, actually = %d\n", offset);
}

int Attribute_float::serialise(int offset, uint8_t* buf, int len) const
{
    uint32_t bits;
    std::memcpy(&bits, &value, 4);
    return write_le(bits, 4, offset, buf, len);
}

int Attribute_float::deserialise(int offset, uint8_t* buf, int len, Iso::Deserialise_results*)
{
    if (offset != 0 || len < 4)
        return 0;
    value = bytes_to_float_ieee754(buf);
    buf[0] = uint8_t(buf[0] + 4);
    return 4;
}

void Attribute_float::get_code_valref(const char*, std::ostream& os, int)
{
    os << value;
}

void Attribute_float::print_me(std::ostream& os, int indent) const
{
    print_indent(os, indent);
    print_basic(os, indent);
    os << " Value: " << value << std::endl;
}

int Attribute_float::_set_by_spec(Spec_node* spec_node, scale_area_t)
{
    if (!spec_node)
        return 0;
    return spec_node->get_float(&value, name);
}

template class Attribute_numbers_template<uint8_t, Attribute::ATTR_UINT8>;
template class Attribute_numbers_template<uint16_t, Attribute::ATTR_UINT16>;
template class Attribute_numbers_template<uint32_t, Attribute::ATTR_UINT32>;
template class Attribute_numbers_template<uint64_t, Attribute::ATTR_UINT64>;
template class Attribute_numbers_template<int8_t, Attribute::ATTR_INT8>;
template class Attribute_numbers_template<int16_t, Attribute::ATTR_INT16>;
template class Attribute_numbers_template<int32_t, Attribute::ATTR_INT32>;
template class Attribute_numbers_template<int64_t, Attribute::ATTR_INT64>;

}
