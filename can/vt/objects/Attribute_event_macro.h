#ifndef CAN_VT_OBJECTS_ATTRIBUTE_EVENT_MACRO_H
#define CAN_VT_OBJECTS_ATTRIBUTE_EVENT_MACRO_H

#include "can/vt/objects/Attribute_numbers.h"
#include "can/vt/objects/Attribute_object_id.h"

namespace VT {

// Binds an event to a macro: event id, macro id (2 bytes).
class Attribute_event_macro : public Attribute
{
public:
    Attribute_event_macro() : Attribute_event_macro(0, 0) {}
    Attribute_event_macro(unsigned char event, unsigned char macro)
        : Attribute("event_macro"), event_id(0, 255, event, "event_id"), macro_id(0, 255, macro, "macro_id")
    {
    }
    uint8_t get_event_id() const { return event_id; }
    uint8_t get_macro_id() const { return macro_id; }

    int num_bytes() const override { return 2; }
    using Attribute::serialise;
    int serialise(int offset, uint8_t* buf, int len) const override;
    int deserialise(int offset, uint8_t* buf, int len, Iso::Deserialise_results* res) override;
    atype get_type() const override { return ATTR_EVENT_MACRO; }
    int _set_by_spec(Spec_node* spec_node, scale_area_t area) override;
    void print_basic(std::ostream& os, int indent) const override;
    void print_me(std::ostream& os, int indent) const override;
    void get_code_def_for_list(const char* prefix, std::ostream& os, int indent);
    void get_code_valref_for_list(const char* prefix, std::ostream& os);
    static const char* search_string() { return "Event_macro"; }

private:
    Attribute_uint8 event_id;
    Attribute_uint8 macro_id;
};

// A two-letter language code of the working set.
class Attribute_lang : public Attribute
{
public:
    Attribute_lang() : Attribute_lang(' ', ' ') {}
    Attribute_lang(unsigned char first, unsigned char second)
        : Attribute("languages"), byte_1(0, 255, first, "byte_1"), byte_2(0, 255, second, "byte_2")
    {
    }
    uint8_t get_byte_1() const { return byte_1; }
    uint8_t get_byte_2() const { return byte_2; }

    int num_bytes() const override { return 2; }
    using Attribute::serialise;
    int serialise(int offset, uint8_t* buf, int len) const override;
    int deserialise(int offset, uint8_t* buf, int len, Iso::Deserialise_results* res) override;
    atype get_type() const override { return ATTR_LANG; }
    int _set_by_spec(Spec_node* spec_node, scale_area_t area) override;
    void print_me(std::ostream& os, int indent) const override;
    void get_code_def_for_list(const char* prefix, std::ostream& os, int indent);
    void get_code_valref_for_list(const char* prefix, std::ostream& os);
    static const char* search_string() { return "Language"; }

private:
    Attribute_uint8 byte_1;
    Attribute_uint8 byte_2;
};

// A language and the country it is spoken in, two letters each (4 bytes): "en", "GB".
class Attribute_language_pair : public Attribute
{
public:
    Attribute_language_pair() : Attribute_language_pair(' ', ' ', ' ', ' ') {}
    Attribute_language_pair(uint8_t language_1, uint8_t language_2, uint8_t country_1, uint8_t country_2)
        : Attribute("language_pairs"), language_1(0, 255, language_1, "language_1"),
          language_2(0, 255, language_2, "language_2"), country_1(0, 255, country_1, "country_1"),
          country_2(0, 255, country_2, "country_2")
    {
    }
    Attribute_language_pair(const char (&language)[3], const char (&country)[3])
        : Attribute_language_pair(uint8_t(language[0]), uint8_t(language[1]), uint8_t(country[0]), uint8_t(country[1]))
    {
    }
    uint8_t get_language(int i) const { return i == 0 ? language_1 : language_2; }
    uint8_t get_country(int i) const { return i == 0 ? country_1 : country_2; }

    int num_bytes() const override { return 4; }
    using Attribute::serialise;
    int serialise(int offset, uint8_t* buf, int len) const override;
    int deserialise(int offset, uint8_t* buf, int len, Iso::Deserialise_results* res) override;
    atype get_type() const override { return ATTR_LANG; }
    int _set_by_spec(Spec_node* spec_node, scale_area_t area) override;
    void print_me(std::ostream& os, int indent) const override;
    void get_code_def_for_list(const char* prefix, std::ostream& os, int indent);
    void get_code_valref_for_list(const char* prefix, std::ostream& os);
    static const char* search_string() { return "Language_pair"; }

private:
    Attribute_uint8 language_1;
    Attribute_uint8 language_2;
    Attribute_uint8 country_1;
    Attribute_uint8 country_2;
};

// An entry of an object label reference list (7 bytes).
class Attribute_labelref : public Attribute
{
public:
    Attribute_labelref() : Attribute_labelref(65535, 65535, 0, 65535) {}
    Attribute_labelref(unsigned short labelled, unsigned short string_variable, unsigned char font_type,
                       unsigned short graphic)
        : Attribute("labelrefs"), labelled_object(labelled, "labelled_object"),
          string_variable(string_variable, "string_variable"), font_type(0, 255, font_type, "font_type"),
          graphic_representation(graphic, "graphic_representation")
    {
    }
    bool operator==(const Attribute_labelref& o) const
    {
        return labelled_object.get() == o.labelled_object.get() && string_variable.get() == o.string_variable.get() &&
               font_type.get() == o.font_type.get() && graphic_representation.get() == o.graphic_representation.get();
    }
    uint16_t get_labelled_object() const { return labelled_object; }
    uint16_t get_string_variable() const { return string_variable; }
    uint8_t get_font_type() const { return font_type; }
    uint16_t get_graphic_representation() const { return graphic_representation; }

    int num_bytes() const override { return 7; }
    using Attribute::serialise;
    int serialise(int offset, uint8_t* buf, int len) const override;
    int deserialise(int offset, uint8_t* buf, int len, Iso::Deserialise_results* res) override;
    atype get_type() const override { return ATTR_LABELREF; }
    int _set_by_spec(Spec_node* spec_node, scale_area_t area) override;
    void print_me(std::ostream& os, int indent) const override;
    void get_code_def_for_list(const char* prefix, std::ostream& os, int indent);
    void get_code_valref_for_list(const char* prefix, std::ostream& os);
    static const char* search_string() { return "Labelref"; }

private:
    Attribute_object_id labelled_object;
    Attribute_object_id string_variable;
    Attribute_uint8 font_type;
    Attribute_object_id graphic_representation;
};

// An object id with an attribute id or index; used while building pools, no byte form.
template <typename T>
class Attribute_identifier : public Attribute
{
public:
    Attribute_identifier() : Attribute_identifier(0, T(0)) {}
    Attribute_identifier(unsigned short oid, T identifier) : Attribute("identifier"), oid(oid), identifier(identifier) {}
    unsigned short get_oid() const { return oid; }
    void set_oid(unsigned short v) { oid = v; }
    T get_identifier() const { return identifier; }
    void set_identifier(const T& v) { identifier = v; }
    static const char* search_string() { return "!Event_macro"; }

    int num_bytes() const override { return 0; }
    using Attribute::serialise;
    int serialise(int, uint8_t*, int) const override { return 0; }
    int deserialise(int, uint8_t*, int, Iso::Deserialise_results*) override { return 0; }
    atype get_type() const override { return ATTR_IDENTIFIER; }
    int _set_by_spec(Spec_node*, scale_area_t) override { return true; }
    void get_code_def_for_list(const char*, std::ostream& os, int indent)
    {
        code_indent_attr(os, indent);
        os << (sizeof(T) == 1 ? "Attribute_identifier<uint8_t>" : "Attribute_identifier<uint16_t>");
    }
    void get_code_valref_for_list(const char*, std::ostream& os) { os << oid << "," << unsigned(identifier); }

private:
    unsigned short oid;
    T identifier;
};

// Marks an object as editable while building pools; no byte form.
class Attribute_editable_object : public Attribute
{
public:
    Attribute_editable_object() : Attribute_editable_object(65535) {}
    explicit Attribute_editable_object(unsigned short oid) : Attribute("Editable"), oid(oid) {}
    unsigned short get_oid() const { return oid; }
    static const char* search_string() { return "Editable"; }

    int num_bytes() const override { return 0; }
    using Attribute::serialise;
    int serialise(int, uint8_t*, int) const override { return 0; }
    int deserialise(int, uint8_t*, int, Iso::Deserialise_results*) override { return 0; }
    atype get_type() const override { return ATTR_EDITABLE_OBJECT; }
    int _set_by_spec(Spec_node* spec_node, scale_area_t area) override;
    void get_code_def_for_list(const char*, std::ostream& os, int indent)
    {
        code_indent_attr(os, indent);
        os << "Attribute_editable_object";
    }
    void get_code_valref_for_list(const char*, std::ostream&) {}

private:
    unsigned short oid;
};

}

#endif
