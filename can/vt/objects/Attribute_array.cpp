#include "can/vt/objects/Attribute_array.h"

#include <cstdio>
#include <iostream>
#include <string>

#include "can/vt/objects/Attribute_object_id.h"

namespace VT {

template <typename T>
int Attribute_array<T>::_set_by_spec(Spec_node* spec_node, scale_area_t area)
{
    if (!spec_node)
        return false;
    int bytes = spec_node->get_value_length(name, area);
    if (bytes <= 0)
        return false;
    uint32_t n = uint32_t(bytes) / uint32_t(WIDTH);
    // One spare element takes the zero that the text copy writes after the value.
    if (!allocate(n) || !spec_node->get_text(reinterpret_cast<char*>(buf), int(n * WIDTH + WIDTH), name)) {
        std::cerr << "Tried to spec array and failed" << name << std::endl;
        return false;
    }
    std::cout << name << "[" << n << "] = ";
    // Each byte as "%hhx " would print it (lower-case hex, no leading zero), written at once.
    static const char digits[] = "0123456789abcdef";
    const uint8_t* bytes_in = reinterpret_cast<const uint8_t*>(buf);
    std::string text;
    text.reserve(size_t(n) * WIDTH * 3);
    for (uint32_t i = 0; i < n * WIDTH; ++i) {
        const uint8_t b = bytes_in[i];
        if (b >= 16)
            text += digits[b >> 4];
        text += digits[b & 15];
        text += ' ';
    }
    std::cout.write(text.data(), std::streamsize(text.size()));
    std::cout << std::endl;
    return false;
}

template class Attribute_array<unsigned char>;
template class Attribute_array<unsigned short>;
template class Attribute_array<char>;
template class Attribute_array<unsigned int>;

bool Attribute_array_char::set_string(const char* s)
{
    if (!buf || held < length)
        return false;
    uint32_t i = 0;
    for (; s && s[i] && i < length; ++i)
        buf[i] = s[i];
    for (; i < length; ++i)
        buf[i] = ' ';
    // An allocated buffer has room for the terminating zero; a borrowed one holds exactly
    // `length` characters, so nothing is written past them.
    if (owns_buffer)
        buf[length] = 0;
    return true;
}

bool Attribute_array_char::set_string_copy(const char* s)
{
    if (!s)
        s = "";
    bool ok = set_num_items(unsigned(strlen(s)));
    if (ok)
        memcpy(buf, s, length);
    return ok;
}

bool Attribute_array_char::is_same(const char* s, int n) const
{
    if (!s || n < 0 || uint32_t(n) > held)
        return false;
    return n == 0 || memcmp(buf, s, size_t(n)) == 0;
}

bool Attribute_array_char::is_utf16() const
{
    return buf && held >= 2 && length >= 2 && uint8_t(buf[0]) == 0xFF && uint8_t(buf[1]) == 0xFE;
}

bool Attribute_array_char::is_utf8() const
{
    return buf && held >= 3 && length >= 3 && uint8_t(buf[0]) == 0xEF && uint8_t(buf[1]) == 0xBB &&
           uint8_t(buf[2]) == 0xBF;
}

namespace {
bool trimmed(uint8_t c)
{
    return c == 0 || c == 9 || c == 10 || c == 32;
}
}

int Attribute_array_char::num_chars() const
{
    uint32_t n = std::min(length, held);
    if (!buf)
        return 0;
    const uint8_t* b = reinterpret_cast<const uint8_t*>(buf);
    if (is_utf16()) {
        if (n < 4)
            return 0;
        uint32_t units = (n - 2) / 2;
        while (units > 0) {
            uint32_t at = 2 + (units - 1) * 2;
            uint8_t lo = b[at], hi = b[at + 1];
            if (hi != 0 || !(lo == 9 || lo == 10 || lo == 32))
                break;
            --units;
        }
        return int(units);
    }
    while (n > 0 && trimmed(b[n - 1]))
        --n;
    return int(n);
}

template <class F>
void Attribute_array_char::walk(F f) const
{
    const uint8_t* b = reinterpret_cast<const uint8_t*>(buf);
    uint32_t end = std::min(length, held);
    int chars = num_chars();
    bool utf16 = is_utf16();
    uint32_t pos = utf16 ? 2 : 0;
    uint32_t step = utf16 ? 2 : 1;
    for (int i = 0; i < chars && pos + step <= end; ++i, pos += step) {
        if (utf16)
            f(b[pos + 1] == 0, b[pos]);
        else
            f(true, b[pos]);
    }
}

int Attribute_array_char::min_line_chars(bool wrap, bool hyphen_wrap) const
{
    if (num_chars() < 1)
        return 0;
    int run = 0, longest = 0;
    auto end_run = [&] {
        longest = std::max(longest, run);
        run = 0;
    };
    walk([&](bool single, uint8_t c) {
        if (single && (c == 10 || c == 13))
            end_run();
        else if (single && c == 32 && wrap)
            end_run();
        else if (single && c == 45 && wrap && hyphen_wrap)
            end_run();
        else if (single && c == 173) {
            ++run;
            if (wrap)
                end_run();
        } else
            ++run;
    });
    return std::max(longest, run);
}

int Attribute_array_char::num_rows(int width, bool wrap, bool hyphen_wrap) const
{
    if (num_chars() == 0)
        return 0;
    int rows = 1, column = 0, word = 0;
    bool after_cr = false;
    walk([&](bool single, uint8_t c) {
        if (single && c == 10) {
            if (!after_cr)
                ++rows;
            column = word = 0;
            after_cr = false;
            return;
        }
        if (single && c == 13) {
            ++rows;
            column = word = 0;
            after_cr = true;
            return;
        }
        after_cr = false;
        if (!wrap)
            return;
        if (single && c == 32)
            word = 0;
        if (single && c == 45 && hyphen_wrap)
            word = 0;
        bool soft_hyphen = single && c == 173;
        if (column < width) {
            ++column;
            word = soft_hyphen ? 2 : word + 1;
            return;
        }
        ++rows;
        if (column > word) {
            ++word;
            column = word;
        } else {
            word = 1;
            column = 1;
        }
    });
    return rows;
}

int Attribute_array_char::_set_by_spec(Spec_node* spec_node, scale_area_t area)
{
    if (!spec_node || !spec_node->has_value(name, area))
        return false;
    int len = spec_node->get_value_length(name, area);
    if (len < 0)
        return false;
    char* text = new (std::nothrow) char[size_t(len) + 1]();
    if (!text)
        return false;
    int r = spec_node->get_text(text, len + 1, name);
    if (!r) {
        delete[] text;
        return false;
    }
    text[len] = 0;
    release();
    buf = text;
    owns_buffer = true;
    set_counters(uint32_t(strlen(text)));
    held = length;
    return r;
}

void Attribute_array_char::print_me(std::ostream& os, int indent) const
{
    print_indent(os, indent);
    print_basic(os, indent);
    uint32_t n = std::min(length, held);
    if (length > 0) {
        os << " Value: ";
        if (is_utf16()) {
            for (uint32_t i = 0; i < n; ++i) {
                char text[8];
                snprintf(text, sizeof text, "%02x", unsigned(uint8_t(buf[i])));
                os << "0x" << text << " ";
            }
            os << std::hex;
        } else {
            for (uint32_t i = 0; i < n; ++i)
                os << buf[i];
        }
    }
    os << std::endl;
}

void Attribute_array_char::get_code_body_item(std::ostream& os, unsigned int i)
{
    char text[16];
    snprintf(text, sizeof text, "%3d", int((*this)[i]));
    os << text;
}

int Attribute_array_object_id::_set_by_spec(Spec_node* spec_node, scale_area_t area)
{
    if (!spec_node)
        return false;
    int n = spec_node->count_children("!Event_macro");
    if (n < 0)
        n = 0;
    std::vector<Attribute_object_id> ids;
    ids.reserve(size_t(n));
    for (int i = 0; i < n; ++i) {
        Spec_node* child = spec_node->get_child(i, "!Event_macro");
        if (!child)
            break;
        ids.emplace_back("id");
        ids.back()._set_by_spec(child, area);
        delete child;
    }
    names.clear();
    for (const Attribute_object_id& id : ids)
        names.append(id.get_referenced_name());
    allocate(uint32_t(names.size()));
    // Filled from the last element backwards; NULL references are skipped.
    int pos = int(length) - 1;
    for (const Attribute_object_id& id : ids) {
        if (id.get() == 65535)
            continue;
        if (pos >= 0)
            buf[pos--] = id.get();
    }
    return true;
}

void Attribute_array_object_id::get_code_body_item(std::ostream& os, unsigned int i)
{
    os << "(Oids::" << (int(i) < names.size() ? names[int(i)].constData() : "") << ")";
}

}
