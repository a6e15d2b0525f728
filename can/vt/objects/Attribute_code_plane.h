#ifndef CAN_VT_OBJECTS_ATTRIBUTE_CODE_PLANE_H
#define CAN_VT_OBJECTS_ATTRIBUTE_CODE_PLANE_H

#include "can/vt/objects/Attribute_list.h"
#include "can/vt/objects/Attribute_numbers.h"

namespace VT {

// A range of 16-bit character codes within a code plane (4 bytes).
class Attribute_code_plane_range : public Attribute
{
public:
    Attribute_code_plane_range() : Attribute_code_plane_range(0, 0) {}
    Attribute_code_plane_range(unsigned short first, unsigned short last)
        : Attribute("code_plane_range"), first_char(0, 65535, first, "first_char"), last_char(0, 65535, last, "last_char")
    {
    }
    bool operator==(const Attribute_code_plane_range& o) const
    {
        return first_char.get() == o.first_char.get() && last_char.get() == o.last_char.get();
    }
    uint16_t get_first_char() const { return first_char; }
    uint16_t get_last_char() const { return last_char; }

    int num_bytes() const override { return 4; }
    using Attribute::serialise;
    int serialise(int offset, uint8_t* buf, int len) const override;
    int deserialise(int offset, uint8_t* buf, int len, Iso::Deserialise_results* res) override;
    atype get_type() const override { return ATTR_CODE_PLANE_RANGE; }
    // Ranges come from bytes or code, never from a description.
    int _set_by_spec(Spec_node*, scale_area_t) override { return false; }
    void print_me(std::ostream& os, int indent) const override;
    void get_code_def_for_list(const char* prefix, std::ostream& os, int indent);
    void get_code_valref_for_list(const char* prefix, std::ostream& os);
    static const char* search_string() { return "Code_plane_range"; }

private:
    Attribute_uint16 first_char;
    Attribute_uint16 last_char;
};

// The accepted ranges of one code plane: plane number, range count, ranges.
class Attribute_code_plane_rangeset : public Attribute
{
public:
    Attribute_code_plane_rangeset() : Attribute_code_plane_rangeset(0, 0, nullptr) {}
    Attribute_code_plane_rangeset(unsigned char plane, unsigned char num_ranges, const Attribute_code_plane_range* ranges = nullptr);
    Attribute_code_plane_rangeset(const Attribute_code_plane_rangeset& o);
    Attribute_code_plane_rangeset& operator=(const Attribute_code_plane_rangeset& o);
    bool operator==(const Attribute_code_plane_rangeset& o) const;

    uint8_t get_plane() const { return plane; }
    uint8_t get_num_ranges() const { return num_ranges; }
    const Attribute_list<Attribute_code_plane_range>& get_ranges() const { return ranges; }
    void set_count_enabled(bool on) { num_ranges.set_enabled(on); }

    int num_bytes() const override { return 1 + num_ranges.num_bytes() + ranges.num_bytes(); }
    using Attribute::serialise;
    int serialise(int offset, uint8_t* buf, int len) const override;
    int deserialise(int offset, uint8_t* buf, int len, Iso::Deserialise_results* res) override;
    atype get_type() const override { return ATTR_CODE_PLANE_RANGESET; }
    int _set_by_spec(Spec_node*, scale_area_t) override { return false; }
    void print_me(std::ostream& os, int indent) const override;
    void get_code_def_for_list(const char* prefix, std::ostream& os, int indent);
    void get_code_valref_for_list(const char* prefix, std::ostream& os);
    static const char* search_string() { return "Code_plane_rangeset"; }

private:
    Attribute_uint8 plane;
    Attribute_list_len<unsigned char> num_ranges;
    Attribute_list<Attribute_code_plane_range> ranges;
};

}

#endif
