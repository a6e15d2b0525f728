#include "can/vt/objects/Attribute_event_macro.h"

#include <iostream>

#include "can/vt/objects/Attribute_composite.h"
#include "can/vt/objects/VT_obj.h"

namespace VT {

int Attribute_event_macro::serialise(int offset, uint8_t* buf, int len) const
{
    return serialise_members({&event_id, &macro_id}, offset, buf, len);
}

int Attribute_event_macro::deserialise(int offset, uint8_t* buf, int len, Iso::Deserialise_results* res)
{
    if (offset + 2 > len)
        return 0;
    return deserialise_members({&event_id, &macro_id}, offset, buf, len, res);
}

int Attribute_event_macro::_set_by_spec(Spec_node* spec_node, scale_area_t area)
{
    int e = event_id._set_by_spec(spec_node, area);
    int m = macro_id._set_by_spec(spec_node, area);
    return e && m;
}

void Attribute_event_macro::print_basic(std::ostream& os, int indent) const
{
    Attribute::print_basic(os, indent);
    os << "\tevent_id: " << unsigned(event_id.get()) << "\tmacro_id: " << unsigned(macro_id.get());
}

void Attribute_event_macro::print_me(std::ostream& os, int indent) const
{
    print_indent(os, indent);
    print_basic(os, indent);
    os << std::endl;
    print_members({&event_id, &macro_id}, os, indent + 1);
}

void Attribute_event_macro::get_code_def_for_list(const char*, std::ostream& os, int indent)
{
    code_indent_attr(os, indent);
    os << "Attribute_event_macro";
}

void Attribute_event_macro::get_code_valref_for_list(const char*, std::ostream& os)
{
    os << unsigned(event_id.get()) << "," << unsigned(macro_id.get());
}

int Attribute_lang::serialise(int offset, uint8_t* buf, int len) const
{
    return serialise_members({&byte_1, &byte_2}, offset, buf, len);
}

int Attribute_lang::deserialise(int offset, uint8_t* buf, int len, Iso::Deserialise_results* res)
{
    return deserialise_members({&byte_1, &byte_2}, offset, buf, len, res);
}

int Attribute_lang::_set_by_spec(Spec_node* spec_node, scale_area_t area)
{
    int a = byte_1._set_by_spec(spec_node, area);
    int b = byte_2._set_by_spec(spec_node, area);
    return a && b;
}

void Attribute_lang::print_me(std::ostream& os, int indent) const
{
    print_indent(os, indent);
    print_basic(os, indent);
    os << " Value: " << char(byte_1.get()) << char(byte_2.get()) << std::endl;
}

void Attribute_lang::get_code_def_for_list(const char*, std::ostream& os, int indent)
{
    code_indent_attr(os, indent);
    os << "Attribute_lang";
}

void Attribute_lang::get_code_valref_for_list(const char*, std::ostream& os)
{
    os << unsigned(byte_1.get()) << "," << unsigned(byte_2.get());
}

int Attribute_language_pair::serialise(int offset, uint8_t* buf, int len) const
{
    return serialise_members({&language_1, &language_2, &country_1, &country_2}, offset, buf, len);
}

int Attribute_language_pair::deserialise(int offset, uint8_t* buf, int len, Iso::Deserialise_results* res)
{
    if (offset + 4 > len)
        return 0;
    return deserialise_members({&language_1, &language_2, &country_1, &country_2}, offset, buf, len, res);
}

int Attribute_language_pair::_set_by_spec(Spec_node* spec_node, scale_area_t area)
{
    int n = 0;
    for (Attribute_uint8* a : {&language_1, &language_2, &country_1, &country_2})
        n += a->_set_by_spec(spec_node, area) ? 1 : 0;
    return n == 4;
}

void Attribute_language_pair::print_me(std::ostream& os, int indent) const
{
    print_indent(os, indent);
    print_basic(os, indent);
    os << " Value: " << char(language_1.get()) << char(language_2.get()) << "-" << char(country_1.get())
       << char(country_2.get()) << std::endl;
}

void Attribute_language_pair::get_code_def_for_list(const char*, std::ostream& os, int indent)
{
    code_indent_attr(os, indent);
    os << "Attribute_language_pair";
}

void Attribute_language_pair::get_code_valref_for_list(const char*, std::ostream& os)
{
    os << unsigned(language_1.get()) << "," << unsigned(language_2.get()) << "," << unsigned(country_1.get()) << ","
       << unsigned(country_2.get());
}

int Attribute_labelref::serialise(int offset, uint8_t* buf, int len) const
{
    return serialise_members({&labelled_object, &string_variable, &font_type, &graphic_representation}, offset, buf,
                             len);
}

int Attribute_labelref::deserialise(int offset, uint8_t* buf, int len, Iso::Deserialise_results* res)
{
    return deserialise_members({&labelled_object, &string_variable, &font_type, &graphic_representation}, offset,
                               buf, len, res);
}

int Attribute_labelref::_set_by_spec(Spec_node* spec_node, scale_area_t area)
{
    int a = labelled_object._set_by_spec(spec_node, area);
    int b = string_variable._set_by_spec(spec_node, area);
    int c = font_type._set_by_spec(spec_node, area);
    int d = graphic_representation._set_by_spec(spec_node, area);
    return a && b && c && d;
}

void Attribute_labelref::print_me(std::ostream& os, int indent) const
{
    print_indent(os, indent);
    print_basic(os, indent);
    os << std::endl;
    print_members({&labelled_object, &string_variable, &font_type, &graphic_representation}, os, indent + 1);
}

void Attribute_labelref::get_code_def_for_list(const char*, std::ostream& os, int indent)
{
    code_indent_attr(os, indent);
    os << "Attribute_labelref";
}

void Attribute_labelref::get_code_valref_for_list(const char*, std::ostream& os)
{
    os << labelled_object.get() << "," << string_variable.get() << "," << unsigned(font_type.get()) << ","
       << graphic_representation.get();
}

int Attribute_editable_object::_set_by_spec(Spec_node* spec_node, scale_area_t area)
{
    if (!spec_node)
        return false;
    char text[256];
    int r = spec_node->get_text(text, sizeof text, "object");
    if (!r)
        return true;
    text[255] = 0;
    oid = spec_node->lookup_object_id(text);
    if (oid == 65535) {
        spec_node->report_unresolved();
        std::cerr << "!WARNING!  Object placement refers to non-existant object '" << text << "'" << std::endl;
        return false;
    }
    check_named_object(spec_node, text, area);
    return r;
}

template class Attribute_identifier<unsigned char>;
template class Attribute_identifier<unsigned short>;

}
