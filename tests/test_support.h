#ifndef TESTS_TEST_SUPPORT_H
#define TESTS_TEST_SUPPORT_H

// Shared test helpers: a Spec_node double driven by plain maps, capture of the debug sink
// and of the standard streams, and byte helpers.

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <iostream>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "vt_core.h"

namespace test {

using Bytes = std::vector<uint8_t>;

// A description node whose values are texts; numbers are parsed from them with automatic base.
class Fake_spec : public Spec_node
{
public:
    struct World
    {
        std::map<std::string, uint16_t> ids;
        std::map<std::string, VT::VT_obj*> objects;
        int unresolved = 0;
    };

    explicit Fake_spec(std::string element = "node", std::shared_ptr<World> world = std::make_shared<World>())
        : element(std::move(element)), world(std::move(world))
    {
    }
    Fake_spec(const Fake_spec&) = default;

    Fake_spec& set(const std::string& key, const std::string& value)
    {
        values[key] = value;
        return *this;
    }
    Fake_spec& add_child(const Fake_spec& child)
    {
        children.push_back(child);
        children.back().world = world;
        return *this;
    }
    Fake_spec& object(VT::VT_obj* obj)
    {
        built = obj;
        return *this;
    }
    World& shared() { return *world; }

    int get_uint8(uint8_t* out, const char* n) override { return number(out, n); }
    int get_uint16(uint16_t* out, const char* n) override { return number(out, n); }
    int get_uint32(uint32_t* out, const char* n) override { return number(out, n); }
    int get_uint64(uint64_t* out, const char* n) override { return number(out, n); }
    int get_int8(int8_t* out, const char* n) override { return number(out, n); }
    int get_int16(int16_t* out, const char* n) override { return number(out, n); }
    int get_int32(int32_t* out, const char* n) override { return number(out, n); }
    int get_int64(int64_t* out, const char* n) override { return number(out, n); }
    int get_float(float* out, const char* n) override
    {
        const std::string* v = find(n);
        if (!v)
            return 0;
        *out = std::strtof(v->c_str(), nullptr);
        return 1;
    }
    int get_text(char* buf, int size, const char* n) override
    {
        const std::string* v = find(n);
        if (!v || size < 1)
            return 0;
        size_t k = std::min(v->size(), size_t(size - 1));
        memcpy(buf, v->data(), k);
        buf[k] = 0;
        return 1;
    }
    int get_value_length(const char* n, VT::scale_area_t) override
    {
        const std::string* v = find(n);
        return v ? int(v->size()) : -1;
    }
    bool has_value(const char* n, VT::scale_area_t) override { return find(n) != nullptr; }
    void describe(char* buf, int size) override { snprintf(buf, size_t(size), "<%s>", element.c_str()); }
    int count_children(const char* filter) override
    {
        int n = 0;
        for (const Fake_spec& c : children)
            n += matches(c, filter);
        return n;
    }
    Spec_node* get_child(int index, const char* filter) override
    {
        for (const Fake_spec& c : children)
            if (matches(c, filter) && index-- == 0)
                return new Fake_spec(c);
        return nullptr;
    }
    uint16_t lookup_object_id(const char* n) override
    {
        auto it = world->ids.find(n ? n : "");
        if (it != world->ids.end())
            return it->second;
        if (n && std::strcmp(n, "65535") == 0)
            return 65535;
        return 65535;
    }
    VT::VT_obj* find_object(const char* n) override
    {
        auto it = world->objects.find(n ? n : "");
        return it == world->objects.end() ? nullptr : it->second;
    }
    VT::VT_obj* get_object() override { return built; }
    void report_unresolved() override { ++world->unresolved; }

    std::string element;
    std::map<std::string, std::string> values;
    std::vector<Fake_spec> children;
    VT::VT_obj* built = nullptr;
    std::shared_ptr<World> world;

private:
    const std::string* find(const char* n) const
    {
        auto it = values.find(n ? n : "");
        return it == values.end() ? nullptr : &it->second;
    }
    template <class T>
    int number(T* out, const char* n)
    {
        const std::string* v = find(n);
        if (!v)
            return 0;
        if (std::is_signed<T>::value)
            *out = T(std::strtoll(v->c_str(), nullptr, 0));
        else
            *out = T(std::strtoull(v->c_str(), nullptr, 0));
        return 1;
    }
    static bool matches(const Fake_spec& c, const char* filter)
    {
        if (!filter)
            return true;
        if (filter[0] == '!')
            return c.element != filter + 1;
        return c.element == filter;
    }
};

// Collects what Debug_print::dprint writes while it lives.
class Dprint_capture
{
public:
    Dprint_capture()
    {
        Debug_print::set_sink([this](const std::string& s) { text += s; });
    }
    ~Dprint_capture() { Debug_print::set_sink({}); }
    std::string text;
};

// Redirects a standard stream into a string while it lives.
class Stream_capture
{
public:
    explicit Stream_capture(std::ostream& os) : os(os), old(os.rdbuf(buffer.rdbuf())) {}
    ~Stream_capture() { os.rdbuf(old); }
    std::string str() const { return buffer.str(); }

private:
    std::ostream& os;
    std::ostringstream buffer;
    std::streambuf* old;
};

// Serialises a whole object in one call.
inline Bytes serialise_whole(VT::VT_obj& obj)
{
    Bytes out(size_t(obj.num_bytes()) + 16, 0xEE);
    int n = obj.serialise(0, out.data(), int(out.size()));
    out.resize(size_t(n > 0 ? n : 0));
    return out;
}

// Serialises an object in pieces of `piece` bytes, resuming at each offset.
inline Bytes serialise_in_pieces(VT::VT_obj& obj, int piece)
{
    Bytes out;
    for (int offset = 0;;) {
        Bytes chunk(size_t(piece), 0xEE);
        int n = obj.serialise(offset, chunk.data(), piece);
        if (n <= 0)
            break;
        out.insert(out.end(), chunk.begin(), chunk.begin() + n);
        offset += n;
    }
    return out;
}

inline std::string hex(const Bytes& b)
{
    std::string s;
    char t[4];
    for (size_t i = 0; i < b.size(); ++i) {
        snprintf(t, sizeof t, i ? " %02X" : "%02X", b[i]);
        s += t;
    }
    return s;
}

}

#endif
