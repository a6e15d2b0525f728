#include "can/vt/objects/Attribute_code_plane.h"

#include "can/vt/objects/Attribute_composite.h"

namespace VT {

int Attribute_code_plane_range::serialise(int offset, uint8_t* buf, int len) const
{
    return serialise_members({&first_char, &last_char}, offset, buf, len);
}

int Attribute_code_plane_range::deserialise(int offset, uint8_t* buf, int len, Iso::Deserialise_results* res)
{
    return deserialise_members({&first_char, &last_char}, offset, buf, len, res);
}

void Attribute_code_plane_range::print_me(std::ostream& os, int indent) const
{
    print_indent(os, indent);
    print_basic(os, indent);
    os << std::endl;
    print_members({&first_char, &last_char}, os, indent + 1);
}

void Attribute_code_plane_range::get_code_def_for_list(const char*, std::ostream& os, int indent)
{
    code_indent_attr(os, indent);
    os << "Attribute_code_plane_range";
}

void Attribute_code_plane_range::get_code_valref_for_list(const char*, std::ostream& os)
{
    os << first_char.get() << "," << last_char.get();
}

Attribute_code_plane_rangeset::Attribute_code_plane_rangeset(unsigned char plane_number, unsigned char n,
                                                             const Attribute_code_plane_range* src)
    : Attribute("code_plane_rangeset"), plane(0, 255, plane_number, "code_plane"),
      num_ranges("num_ranges", &ranges, true), ranges("ranges", src, src ? n : 0)
{
}

Attribute_code_plane_rangeset::Attribute_code_plane_rangeset(const Attribute_code_plane_rangeset& o)
    : Attribute(o), plane(o.plane), num_ranges("num_ranges", &ranges, o.num_ranges.is_enabled()), ranges("ranges")
{
    ranges.copy_from(o.ranges);
}

Attribute_code_plane_rangeset& Attribute_code_plane_rangeset::operator=(const Attribute_code_plane_rangeset& o)
{
    if (this != &o) {
        Attribute::operator=(o);
        plane = o.plane;
        num_ranges.set_enabled(o.num_ranges.is_enabled());
        ranges.copy_from(o.ranges);
    }
    return *this;
}

bool Attribute_code_plane_rangeset::operator==(const Attribute_code_plane_rangeset& o) const
{
    if (plane.get() != o.plane.get() || ranges.get_length() != o.ranges.get_length())
        return false;
    for (uint32_t i = 0; i < ranges.held(); ++i)
        if (!(ranges[i] == o.ranges[i]))
            return false;
    return true;
}

int Attribute_code_plane_rangeset::serialise(int offset, uint8_t* buf, int len) const
{
    return serialise_members({&plane, &num_ranges, &ranges}, offset, buf, len);
}

int Attribute_code_plane_rangeset::deserialise(int offset, uint8_t* buf, int len, Iso::Deserialise_results* res)
{
    int total = 0;
    for (Attribute* m : std::initializer_list<Attribute*>{&plane, &num_ranges, &ranges}) {
        int r = m->deserialise(offset, buf, len, res);
        if (r < 0)
            return r;
        if (r < m->num_bytes())
            return total; // short input: the caller sees fewer bytes than the set needs
        offset = 0;
        buf += r;
        len -= r;
        total += r;
    }
    return total;
}

void Attribute_code_plane_rangeset::print_me(std::ostream& os, int indent) const
{
    print_indent(os, indent);
    print_basic(os, indent);
    os << std::endl;
    print_members({&plane, &num_ranges, &ranges}, os, indent + 1);
}

void Attribute_code_plane_rangeset::get_code_def_for_list(const char*, std::ostream& os, int indent)
{
    code_indent_attr(os, indent);
    os << "Attribute_code_plane_rangeset";
}

void Attribute_code_plane_rangeset::get_code_valref_for_list(const char*, std::ostream& os)
{
    os << unsigned(plane.get()) << "," << unsigned(num_ranges.get());
}

}
