#ifndef CAN_VT_OBJECTS_ATTRIBUTE_ARRAY_H
#define CAN_VT_OBJECTS_ATTRIBUTE_ARRAY_H

#include <QByteArray>
#include <QList>
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <ostream>

#include "can/vt/objects/Attribute.h"

namespace VT {

// Base of arrays and lists: the element counters. Every setter keeps the three counters equal.
class _Attribute_list : public Attribute
{
public:
    // Byte sizes are reported no larger than this, whatever count the input claimed.
    static constexpr int64_t MAX_BYTES = 0x3FFFFFFF;

    explicit _Attribute_list(const char* name) : Attribute(name) {}
    uint32_t get_length() const { return length; }
    void set_counters(uint32_t n) { length = capacity = item_count = n; }

protected:
    uint32_t length = 0;
    uint32_t capacity = 0;
    uint32_t item_count = 0;
};

template <typename T>
struct Array_traits;
template <> struct Array_traits<unsigned char> { static constexpr const char* type = "uint8_t"; static constexpr Attribute::atype code = Attribute::ATTR_ARRAY_UINT8; };
template <> struct Array_traits<unsigned short> { static constexpr const char* type = "object_id_t"; static constexpr Attribute::atype code = Attribute::ATTR_ARRAY_OBJECT_ID; };
template <> struct Array_traits<char> { static constexpr const char* type = "char_t"; static constexpr Attribute::atype code = Attribute::ATTR_ARRAY_CHAR; };
template <> struct Array_traits<unsigned int> { static constexpr const char* type = "argb_t"; static constexpr Attribute::atype code = Attribute::ATTR_ARRAY_ARGB; };

// A run of fixed-width elements whose count travels in a separate count attribute.
// The buffer is either owned (allocated here) or borrowed from the caller.
template <typename T>
class Attribute_array : public _Attribute_list
{
public:
    static constexpr const char* type = Array_traits<T>::type;
    static constexpr int WIDTH = int(sizeof(T));

    explicit Attribute_array(const char* name) : _Attribute_list(name) {}
    Attribute_array(T* buf, const char* name) : _Attribute_list(name), buf(buf) {}
    Attribute_array(T* buf, int len, const char* name) : _Attribute_list(name), buf(buf)
    {
        set_counters(buf && len > 0 ? uint32_t(len) : 0);
        held = length;
    }
    // Takes over the other array's buffer, counters and flags.
    Attribute_array(Attribute_array<T>& other, const char* name) : _Attribute_list(name)
    {
        buf = other.buf;
        length = other.length;
        capacity = other.capacity;
        item_count = other.item_count;
        held = other.held;
        flag = other.flag;
        owns_buffer = other.owns_buffer;
        other.owns_buffer = false;
    }
    Attribute_array(const Attribute_array&) = delete;
    Attribute_array& operator=(const Attribute_array&) = delete;
    ~Attribute_array() override { release(); }

    T& operator[](unsigned int i) { return i < held && i < length ? buf[i] : spare_element(); }
    const T& operator[](unsigned int i) const { return i < held && i < length ? buf[i] : spare_element(); }
    T* get_buf() const { return buf; }

    bool owns() const { return owns_buffer; }
    // Replaces the buffer pointer (no copy, ownership unchanged).
    void set_buf(T* b, int len)
    {
        buf = b;
        set_counters(b && len > 0 ? uint32_t(len) : 0);
        held = length;
    }
    bool set_element(unsigned int i, const T& v)
    {
        if (i >= length || i >= held)
            return false;
        buf[i] = v;
        return true;
    }
    bool set_elements(unsigned int i, const T* src, unsigned int n)
    {
        if (i >= length || i >= held)
            return false;
        unsigned int count = std::min(n, std::min(length, held) - i);
        memmove(buf + i, src, count * sizeof(T));
        return true;
    }
    // Only the start index is checked against the length; the fill stops at the buffer's end.
    bool set_elements(unsigned int i, const T& v, unsigned int n)
    {
        if (i >= length)
            return false;
        for (unsigned int k = i; k < i + n && k < held; ++k)
            buf[k] = v;
        return true;
    }
    unsigned int get_elements(unsigned int i, T* dst, unsigned int n) const
    {
        return copy_elements(i, dst, n, std::min(length, held));
    }
    // Elements the buffer really holds (the count may announce more, or fewer).
    uint32_t held_count() const { return buf ? held : 0; }
    // Element i of the first `have` held, or a zero spare element past them.
    const T& element(unsigned int i, uint32_t have) const { return i < have ? buf[i] : spare_element(); }
    // Copies min(n, have - i) of the first `have` elements held from i on into dst; how many.
    unsigned int copy_elements(unsigned int i, T* dst, unsigned int n, uint32_t have) const
    {
        if (i >= have || !dst)
            return 0;
        unsigned int count = std::min(n, have - i);
        memcpy(dst, buf + i, count * sizeof(T));
        return count;
    }
    // Allocates n zeroed elements (plus a terminating zero element) owned by the array.
    bool allocate(uint32_t n)
    {
        T* b = new (std::nothrow) T[size_t(n) + 1]();
        if (!b)
            return false;
        release();
        buf = b;
        owns_buffer = true;
        set_counters(n);
        held = n;
        return true;
    }

    int num_bytes() const override { return int(std::min<int64_t>(int64_t(length) * WIDTH, MAX_BYTES)); }

    using Attribute::serialise;
    int serialise(int offset, uint8_t* out, int len) const override
    {
        int total = num_bytes();
        if (len < 1 || offset < 0 || offset >= total)
            return 0;
        int n = std::min(total - offset, len);
        if (WIDTH == 1) {
            // Bytes are the elements themselves: copy what is held, zeros after it.
            const int have = offset < int(held) ? std::min(n, int(held) - offset) : 0;
            if (have > 0)
                memcpy(out, reinterpret_cast<const uint8_t*>(buf) + offset, size_t(have));
            if (n > std::max(have, 0))
                memset(out + std::max(have, 0), 0, size_t(n - std::max(have, 0)));
            return n;
        }
        for (int k = 0; k < n; ++k) {
            int byte = offset + k;
            unsigned element = unsigned(byte / WIDTH);
            // Elements the buffer does not hold travel as zero bytes.
            out[k] = element < held ? byte_of(buf[element], byte % WIDTH) : 0;
        }
        return n;
    }

    // The whole array must be in one call: returns 0 (nothing read) when the input is short.
    int deserialise(int offset, uint8_t* in, int len, Iso::Deserialise_results*) override
    {
        uint64_t need = uint64_t(length) * uint32_t(WIDTH);
        if (len < 0 || offset < 0 || uint64_t(offset) + uint64_t(len) < need)
            return 0;
        uint32_t n = length;
        if (!allocate(n))
            return 0;
        if (WIDTH == 1 && offset == 0) {
            if (n)
                memcpy(buf, in, n);
            return int(n);
        }
        int consumed = 0;
        for (uint64_t byte = 0; byte < need; ++byte) {
            uint8_t v = 0;
            if (byte >= uint64_t(offset))
                v = in[consumed++];
            set_byte(buf[byte / WIDTH], int(byte % WIDTH), v);
        }
        return consumed;
    }

    int _set_by_spec(Spec_node* spec_node, scale_area_t area) override;
    void print_me(std::ostream& os, int indent) const override
    {
        print_indent(os, indent);
        print_basic(os, indent);
        os << " With " << length << " items" << std::endl;
    }
    atype get_type() const override { return Array_traits<T>::code; }

    void get_code_def(const char* prefix, std::ostream& os, int indent) override
    {
        if (length == 0)
            return;
        code_indent_attr(os, indent);
        os << type << " " << prefix << "_" << name << "[" << length << "];" << std::endl;
    }
    void get_code_body(const char* prefix, std::ostream& os, int indent) override
    {
        if (length == 0)
            return;
        code_indent_attr(os, indent);
        os << "static const " << type << " _" << prefix << "_" << name << "[] = {";
        for (uint32_t i = 0; i < length; ++i) {
            if (i)
                os << ",";
            get_code_body_item(os, i);
        }
        os << "};" << std::endl;
        code_indent_attr(os, indent);
        os << "memcpy(" << "(void*)" << prefix << "_" << name << ",(const void*)_" << prefix << "_" << name << ", "
           << length << " * sizeof(" << type << "));" << std::endl;
    }
    virtual void get_code_body_item(std::ostream& os, unsigned int i)
    {
        char text[16];
        snprintf(text, sizeof text, "%3lld", static_cast<long long>((*this)[i]));
        os << text;
    }
    void get_code_valref(const char* prefix, std::ostream& os, int) override
    {
        if (length == 0)
            os << "NULL";
        else
            os << prefix << "_" << name;
    }

protected:
    void release()
    {
        if (owns_buffer)
            delete[] buf;
        buf = nullptr;
        owns_buffer = false;
        held = 0;
    }
    static T& spare_element()
    {
        static T spare;
        spare = T();
        return spare;
    }
    static uint8_t byte_of(T v, int i) { return uint8_t(uint32_t(v) >> (8 * i)); }
    static void set_byte(T& v, int i, uint8_t b)
    {
        uint32_t bits = uint32_t(v);
        bits = (bits & ~(0xFFu << (8 * i))) | (uint32_t(b) << (8 * i));
        v = T(bits);
    }

    T* buf = nullptr;
    uint32_t held = 0; // elements the buffer really holds
    uint8_t flag = 0;
    bool owns_buffer = false;
};

typedef Attribute_array<unsigned char> Attribute_array_uint8;
typedef Attribute_array<unsigned int> Attribute_array_argb;

// A fixed-width, space-padded character field; the buffer always ends in a zero byte.
class Attribute_array_char : public Attribute_array<char>
{
public:
    using Attribute_array<char>::Attribute_array;

    bool set_num_items(unsigned int n) { return allocate(n); }
    bool set_string(const char* s);
    bool set_string_copy(const char* s);
    bool is_same(const char* s, int n) const;
    bool is_utf16() const;
    bool is_utf8() const;
    int num_chars() const;
    int min_line_chars(bool wrap, bool hyphen_wrap) const;
    int num_rows(int width, bool wrap, bool hyphen_wrap) const;
    // The text, or an empty string when there is none.
    const char* c_str() const { return buf && held ? buf : ""; }

    int _set_by_spec(Spec_node* spec_node, scale_area_t area) override;
    void print_me(std::ostream& os, int indent) const override;
    void get_code_body_item(std::ostream& os, unsigned int i) override;

private:
    // Calls f(is_single_byte, character) for each of the num_chars() characters.
    template <class F>
    void walk(F f) const;
};

// Object ids resolved from a description node's children; keeps each referenced object's name
// for generated source.
class Attribute_array_object_id : public Attribute_array<unsigned short>
{
public:
    using Attribute_array<unsigned short>::Attribute_array;
    int _set_by_spec(Spec_node* spec_node, scale_area_t area) override;
    void get_code_body_item(std::ostream& os, unsigned int i) override;
    const QList<QByteArray>& get_names() const { return names; }

private:
    QList<QByteArray> names;
};

extern template class Attribute_array<unsigned char>;
extern template class Attribute_array<unsigned short>;
extern template class Attribute_array<char>;
extern template class Attribute_array<unsigned int>;

}

#endif
