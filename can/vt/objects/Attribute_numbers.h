#ifndef CAN_VT_OBJECTS_ATTRIBUTE_NUMBERS_H
#define CAN_VT_OBJECTS_ATTRIBUTE_NUMBERS_H

#include <cstdint>
#include <iostream>
#include <type_traits>

#include "can/vt/objects/Attribute.h"

namespace VT {

// Deserialise is always given offset 0 by the object base; anything else is reported.
void report_offset(int offset);
inline void warn_offset(int offset)
{
    if (offset != 0)
        report_offset(offset);
}

namespace detail {
// Widens 8-bit values so that streams print numbers, not characters.
template <typename T>
auto printable(T v)
{
    if constexpr (std::is_same_v<T, uint8_t>)
        return unsigned(v);
    else if constexpr (std::is_same_v<T, int8_t>)
        return int(v);
    else
        return v;
}
}

// An integer attribute of width sizeof(T) with a range; every assignment is range-checked.
template <typename T, Attribute::atype ATYPE>
class Attribute_numbers_template : public Attribute
{
public:
    static constexpr int WIDTH = int(sizeof(T));

    Attribute_numbers_template(T minimum, T maximum, const char* name)
        : Attribute(name), value(minimum), min(minimum), max(maximum)
    {
    }
    Attribute_numbers_template(T minimum, T maximum, T v, const char* name)
        : Attribute(name), value(v), min(minimum), max(maximum)
    {
        if (v > max || v < min)
            clamp(v);
    }
    Attribute_numbers_template(const Attribute_numbers_template&) = default;

    // Range-checked assignment: out-of-range values are clamped with a warning. The check stays
    // inline, so that building an object, which sets every attribute, costs a compare each.
    Attribute_numbers_template& operator=(T v)
    {
        if (v > max || v < min)
            clamp(v);
        else
            value = v;
        return *this;
    }
    Attribute_numbers_template& operator=(const Attribute_numbers_template&) = default;

    T get() const { return value; }
    operator T() const { return value; }
    T get_min() const { return min; }
    T get_max() const { return max; }

    int num_bytes() const override { return WIDTH; }

    // The byte form does not depend on the terminal: both serialise slots write the same bytes
    // (a subclass that changes the form overrides both).
    int serialise(int offset, uint8_t* buf, int len) const override { return write_bytes(offset, buf, len); }
    int serialise(const Serialisation_limits*, int offset, uint8_t* buf, int len) const override
    {
        return write_bytes(offset, buf, len);
    }

    int deserialise(int offset, uint8_t* buf, int len, Iso::Deserialise_results* res) override
    {
        warn_offset(offset);
        if (WIDTH == 8) {
            // 64-bit values are not read back from the byte form.
            *this = T(0);
            if (value != 0 && res)
                res->flags |= Iso::Deserialise_results::value_clamped;
            return 8;
        }
        if (len < WIDTH)
            return 0; // too little input: nothing is read
        uint64_t bits = 0;
        for (int i = 0; i < WIDTH; ++i)
            bits |= uint64_t(buf[i]) << (8 * i);
        const T read = T(std::make_unsigned_t<T>(bits));
        if (read >= min && read <= max) {
            value = read;
            return WIDTH;
        }
        *this = read; // clamped, with the warning
        if (res)
            res->flags |= Iso::Deserialise_results::value_clamped;
        return WIDTH;
    }

    void get_code_valref(const char*, std::ostream& os, int) override
    {
        if constexpr (std::is_unsigned_v<T>)
            os << detail::printable(value) << "U";
        else
            os << detail::printable(value);
    }

    void print_me(std::ostream& os, int indent) const override
    {
        print_indent(os, indent);
        print_basic(os, indent);
        os << " Value: " << detail::printable(value) << std::endl;
    }

    atype get_type() const override { return ATYPE; }

    int _set_by_spec(Spec_node* spec_node, scale_area_t) override
    {
        if (!spec_node)
            return 0;
        T v = value;
        int r = get_from_spec(spec_node, &v);
        if (r == 0)
            return 0;
        *this = v;
        return r;
    }

protected:
    // Writes the bytes of the value from `offset` on, at most `len`.
    int write_bytes(int offset, uint8_t* buf, int len) const
    {
        // 64-bit values travel as their low 32 bits followed by four zero bytes.
        uint64_t bits = uint64_t(std::make_unsigned_t<T>(value));
        if (WIDTH == 8)
            bits &= 0xFFFFFFFFu;
        return write_le(bits, WIDTH, offset, buf, len);
    }

    T value;
    T min;
    T max;

private:
    // Sets the nearest bound in place of a value outside the range, saying so.
    [[gnu::noinline]] void clamp(T v)
    {
        if (v > max) {
            warn(v, "maximum", max);
            value = max;
        } else {
            warn(v, "minimum", min);
            value = min;
        }
    }
    void warn(T v, const char* bound, T limit) const
    {
        std::cerr << "WARNING: attempt to set '" << (name ? name : "ATTR_UNKNOWN") << "' to "
                  << detail::printable(v) << ", " << bound << " is " << detail::printable(limit) << std::endl;
    }
    int get_from_spec(Spec_node* s, T* v) const;
};

template <> inline int Attribute_numbers_template<uint8_t, Attribute::ATTR_UINT8>::get_from_spec(Spec_node* s, uint8_t* v) const { return s->get_uint8(v, name); }
template <> inline int Attribute_numbers_template<uint16_t, Attribute::ATTR_UINT16>::get_from_spec(Spec_node* s, uint16_t* v) const { return s->get_uint16(v, name); }
template <> inline int Attribute_numbers_template<uint32_t, Attribute::ATTR_UINT32>::get_from_spec(Spec_node* s, uint32_t* v) const { return s->get_uint32(v, name); }
template <> inline int Attribute_numbers_template<uint64_t, Attribute::ATTR_UINT64>::get_from_spec(Spec_node* s, uint64_t* v) const { return s->get_uint64(v, name); }
template <> inline int Attribute_numbers_template<int8_t, Attribute::ATTR_INT8>::get_from_spec(Spec_node* s, int8_t* v) const { return s->get_int8(v, name); }
template <> inline int Attribute_numbers_template<int16_t, Attribute::ATTR_INT16>::get_from_spec(Spec_node* s, int16_t* v) const { return s->get_int16(v, name); }
template <> inline int Attribute_numbers_template<int32_t, Attribute::ATTR_INT32>::get_from_spec(Spec_node* s, int32_t* v) const { return s->get_int32(v, name); }
template <> inline int Attribute_numbers_template<int64_t, Attribute::ATTR_INT64>::get_from_spec(Spec_node* s, int64_t* v) const { return s->get_int64(v, name); }

#define VT_SCALAR_ATTRIBUTE(CLASS, T, ATYPE)                                          \
    class CLASS : public Attribute_numbers_template<T, Attribute::ATYPE>             \
    {                                                                                \
    public:                                                                          \
        using Attribute_numbers_template<T, Attribute::ATYPE>::Attribute_numbers_template; \
        using Attribute_numbers_template<T, Attribute::ATYPE>::operator=;            \
        CLASS(const CLASS&) = default;                                               \
        CLASS& operator=(const CLASS&) = default;                                    \
    };

VT_SCALAR_ATTRIBUTE(Attribute_uint8, uint8_t, ATTR_UINT8)
VT_SCALAR_ATTRIBUTE(Attribute_uint16, uint16_t, ATTR_UINT16)
VT_SCALAR_ATTRIBUTE(Attribute_uint32, uint32_t, ATTR_UINT32)
VT_SCALAR_ATTRIBUTE(Attribute_uint64, uint64_t, ATTR_UINT64)
VT_SCALAR_ATTRIBUTE(Attribute_int8, int8_t, ATTR_INT8)
VT_SCALAR_ATTRIBUTE(Attribute_int16, int16_t, ATTR_INT16)
VT_SCALAR_ATTRIBUTE(Attribute_int32, int32_t, ATTR_INT32)
VT_SCALAR_ATTRIBUTE(Attribute_int64, int64_t, ATTR_INT64)
#undef VT_SCALAR_ATTRIBUTE

// A single-precision float attribute: no range, stored unchanged.
class Attribute_float : public Attribute
{
public:
    explicit Attribute_float(const char* name, float v = 0.0f) : Attribute(name), value(v) {}
    Attribute_float& operator=(float v)
    {
        value = v;
        return *this;
    }
    float get() const { return value; }
    operator float() const { return value; }

    int num_bytes() const override { return 4; }
    int serialise(int offset, uint8_t* buf, int len) const override;
    int serialise(const Serialisation_limits*, int offset, uint8_t* buf, int len) const override
    {
        return Attribute_float::serialise(offset, buf, len);
    }
    // Leaves a mark in its input: the first byte of `buf` is increased by 4.
    int deserialise(int offset, uint8_t* buf, int len, Iso::Deserialise_results* res) override;
    void get_code_valref(const char* prefix, std::ostream& os, int indent) override;
    void print_me(std::ostream& os, int indent) const override;
    atype get_type() const override { return ATTR_FLOAT; }
    int _set_by_spec(Spec_node* spec_node, scale_area_t area) override;

private:
    float value;
};

}

#endif
