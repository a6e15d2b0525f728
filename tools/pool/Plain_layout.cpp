#include "tools/pool/Plain_layout.h"

#include <limits>
#include <typeinfo>

namespace VT {

namespace {

// Whether `count` items of T from `at` each read whole with T's own reading and clamp nothing.
template <class T>
bool items_read_plainly(const uint8_t* at, uint32_t count)
{
    // One item per thread reads them all: making one costs more than reading it.
    static thread_local T item;
    const int width = item.T::num_bytes();
    Iso::Deserialise_results res;
    // Items read their bytes without writing them.
    uint8_t* bytes = const_cast<uint8_t*>(at);
    for (uint32_t i = 0; i < count; ++i, bytes += width)
        if (item.T::deserialise(0, bytes, width, &res) != width)
            return false;
    return res.flags == 0;
}

// A little-endian number of 1, 2 or 4 bytes.
inline uint32_t read_le(const uint8_t* at, uint32_t width)
{
    switch (width) {
    case 1:
        return at[0];
    case 2:
        return uint32_t(at[0] | at[1] << 8);
    default:
        return uint32_t(at[0]) | uint32_t(at[1]) << 8 | uint32_t(at[2]) << 16 | uint32_t(at[3]) << 24;
    }
}

}

template <class A>
bool Plain_layout::add_number(const Attribute& a, std::vector<Part>& parts)
{
    if (typeid(a) != typeid(A))
        return false;
    const A& n = static_cast<const A&>(a);
    typedef decltype(n.get()) T;
    if (n.get_min() == std::numeric_limits<T>::min() && n.get_max() == std::numeric_limits<T>::max())
        add_bytes(sizeof(T), parts);
    else
        parts.push_back({Part::number, std::is_signed_v<T>, 0, uint32_t(sizeof(T)), int64_t(n.get_min()),
                         int64_t(n.get_max()), nullptr});
    return true;
}

void Plain_layout::add_bytes(uint32_t width, std::vector<Part>& parts)
{
    if (!parts.empty() && parts.back().kind == Part::bytes)
        parts.back().width += width;
    else
        parts.push_back({Part::bytes, false, 0, width, 0, 0, nullptr});
}

template <class W>
bool Plain_layout::add_count(const Attribute& a, std::vector<Part>& parts, std::vector<const Attribute*>& counted)
{
    if (typeid(a) != typeid(Attribute_list_len<W>))
        return false;
    const auto& count = static_cast<const Attribute_list_len<W>&>(a);
    // A count without bytes leaves its list as the object was made: not plain.
    if (!count.is_enabled() || !count.counted() || counted.size() >= MAX_COUNTS)
        return false;
    parts.push_back({Part::count, false, uint8_t(counted.size()), uint32_t(sizeof(W)), 0, 0, nullptr});
    counted.push_back(count.counted());
    return true;
}

template <class T>
bool Plain_layout::add_list(const Attribute& a, std::vector<Part>& parts, std::vector<const Attribute*>& counted)
{
    if (typeid(a) != typeid(Attribute_list<T>))
        return false;
    return add_counted(a, T().num_bytes(), &items_read_plainly<T>, parts, counted);
}

template <class T>
bool Plain_layout::add_array(const Attribute& a, std::vector<Part>& parts, std::vector<const Attribute*>& counted)
{
    if (typeid(a) != typeid(T))
        return false;
    return add_counted(a, T::WIDTH, nullptr, parts, counted);
}

bool Plain_layout::add_counted(const Attribute& a, int width, Items_check check, std::vector<Part>& parts,
                               std::vector<const Attribute*>& counted)
{
    // Counted by a count read before it, in items that have bytes.
    for (size_t k = 0; k < counted.size() && width > 0; ++k)
        if (counted[k] == &a) {
            parts.push_back({Part::items, false, uint8_t(k), uint32_t(width), 0, 0, check});
            return true;
        }
    return false;
}

std::unique_ptr<Plain_layout> Plain_layout::of(const VT_obj& sample)
{
    std::unique_ptr<Plain_layout> layout(new Plain_layout);
    std::vector<const Attribute*> counted;
    // The table deserialise walks, not what a class may show besides.
    const uint16_t n = sample.VT_obj_base::get_num_every_attribute();
    for (uint16_t i = 0; i < n; ++i) {
        const Attribute* a = sample.VT_obj_base::get_every_attribute(i);
        if (!a)
            continue;
        std::vector<Part>& parts = layout->parts;
        // The attribute classes whose reading the layout knows: numbers, counts, lists of these
        // items and arrays. A class derived from one may read its bytes its own way, so only
        // these classes themselves are plain (the two font bytes read as their base does).
        const bool plain = add_number<Attribute_uint8>(*a, parts) || add_number<Attribute_uint16>(*a, parts) ||
            add_number<Attribute_uint32>(*a, parts) || add_number<Attribute_int8>(*a, parts) ||
            add_number<Attribute_int16>(*a, parts) || add_number<Attribute_int32>(*a, parts) ||
            add_number<Attribute_colour>(*a, parts) || add_number<Attribute_object_id>(*a, parts) ||
            add_number<Base::Font_attributes_obj::Attribute_font_size>(*a, parts) ||
            add_number<Base::Font_attributes_obj::Attribute_font_style>(*a, parts) ||
            add_count<uint8_t>(*a, parts, counted) || add_count<uint16_t>(*a, parts, counted) ||
            add_count<uint32_t>(*a, parts, counted) || add_list<Attribute_object_placement>(*a, parts, counted) ||
            add_list<Attribute_object_id>(*a, parts, counted) || add_list<Attribute_point>(*a, parts, counted) ||
            add_list<Attribute_event_macro>(*a, parts, counted) || add_list<Attribute_lang>(*a, parts, counted) ||
            add_array<Attribute_array_uint8>(*a, parts, counted) ||
            add_array<Attribute_array_char>(*a, parts, counted) ||
            add_array<Attribute_array_object_id>(*a, parts, counted) ||
            add_array<Attribute_array_argb>(*a, parts, counted);
        if (plain)
            continue;
        if (typeid(*a) != typeid(Attribute_float))
            return nullptr;
        add_bytes(4, parts);
    }
    return layout;
}

int Plain_layout::check(const uint8_t* at, int len) const
{
    uint32_t counts[MAX_COUNTS] = {};
    int64_t used = 0;
    for (const Part& p : parts) {
        const int64_t left = len - used;
        switch (p.kind) {
        case Part::bytes:
            if (left < p.width)
                return -1;
            used += p.width;
            break;
        case Part::number: {
            if (left < p.width)
                return -1;
            int64_t v = read_le(at + used, p.width);
            if (p.is_signed) {
                const int unused = 64 - 8 * p.width;
                v = int64_t(uint64_t(v) << unused) >> unused;
            }
            if (v < p.min || v > p.max)
                return -1;
            used += p.width;
            break;
        }
        case Part::count:
            if (left < p.width)
                return -1;
            counts[p.counter] = read_le(at + used, p.width);
            used += p.width;
            break;
        case Part::items: {
            const uint32_t count = counts[p.counter];
            const int64_t bytes = int64_t(count) * p.width;
            if (bytes > left || (p.check && count && !p.check(at + used, count)))
                return -1;
            used += bytes;
            break;
        }
        }
    }
    return int(used);
}

}
