#ifndef CAN_VT_OBJECTS_ATTRIBUTE_LIST_H
#define CAN_VT_OBJECTS_ATTRIBUTE_LIST_H

#include <algorithm>
#include <memory>
#include <ostream>

#include "can/vt/objects/Attribute_array.h"
#include "platform/Debug_print.h"

namespace VT {

namespace detail {
// The child filter of a list's items: the item class's own search text where it has one.
template <class T, class = void>
struct Search_string
{
    static const char* get() { return "!Event_macro"; }
};
template <class T>
struct Search_string<T, std::void_t<decltype(T::search_string())>>
{
    static const char* get() { return T::search_string(); }
};

// Prints the extra detail an item of an object-reference list shows.
template <class T, class = void>
struct Reference_detail
{
    static constexpr bool is_reference = false;
    static void print(const T&, std::ostream&) {}
};
template <class T>
struct Reference_detail<T, std::void_t<decltype(T::is_object_reference)>>
{
    static constexpr bool is_reference = true;
    static void print(const T& item, std::ostream& os) { os << " id: " << item.get(); }
};
}

// A repeated group: items that are attributes themselves, counted by a separate
// Attribute_list_len. The list owns its items.
template <class T>
class Attribute_list : public _Attribute_list
{
public:
    explicit Attribute_list(const char* name) : _Attribute_list(name) {}
    Attribute_list(const char* name, const T* src, unsigned n) : _Attribute_list(name) { set_items(src, n); }
    Attribute_list(const Attribute_list&) = delete;
    Attribute_list& operator=(const Attribute_list&) = delete;
    ~Attribute_list() override = default;

    // Copies n items from src. Items that came without a name take the list's.
    void set_items(const T* src, unsigned n)
    {
        items.reset(src && n ? new T[n] : nullptr);
        allocated = src ? n : 0;
        for (unsigned i = 0; i < allocated; ++i) {
            items[i] = src[i];
            if (!items[i].name)
                items[i].construct(name);
        }
        set_counters(allocated);
    }
    void copy_from(const Attribute_list& other) { set_items(other.items.get(), other.held()); }
    // Sets the count; items beyond those held are added as NULL references.
    void set_length(uint32_t n)
    {
        if (n > allocated) {
            std::unique_ptr<T[]> grown(new T[n]);
            for (uint32_t i = 0; i < allocated; ++i)
                grown[i] = items[i];
            for (uint32_t i = allocated; i < n; ++i) {
                grown[i].construct(name);
                null_item(grown[i]);
            }
            items = std::move(grown);
            allocated = n;
        }
        set_counters(n);
    }
    // Items actually present (never more than the count).
    uint32_t held() const { return std::min(length, allocated); }
    T* item(unsigned i) { return i < held() ? &items[i] : nullptr; }
    const T* item(unsigned i) const { return i < held() ? &items[i] : nullptr; }
    T& operator[](unsigned i)
    {
        if (T* p = item(i))
            return *p;
        static T spare;
        spare = T();
        return spare;
    }
    const T& operator[](unsigned i) const { return const_cast<Attribute_list*>(this)->operator[](i); }

    int num_bytes() const override
    {
        int64_t total = 0;
        for (uint32_t i = 0; i < held(); ++i)
            total += items[i].T::num_bytes();
        // Items counted but not present (a count read or set ahead of its items) travel as
        // NULL items of the default size.
        if (length > allocated)
            total += int64_t(length - allocated) * item_bytes();
        return int(std::min<int64_t>(total, MAX_BYTES));
    }

    using Attribute::serialise;
    int serialise(int offset, uint8_t* buf, int len) const override
    {
        return Attribute_list::serialise(nullptr, offset, buf, len);
    }
    // Most objects' event macro lists are empty: those return before the item walk.
    int serialise(const Serialisation_limits* limits, int offset, uint8_t* buf, int len) const override
    {
        if (length == 0 || len <= 0)
            return 0;
        return serialise_items(limits, offset, buf, len);
    }

    int deserialise(int offset, uint8_t* buf, int len, Iso::Deserialise_results* res) override
    {
        uint32_t count = length;
        items.reset();
        allocated = 0;
        if (count == 0)
            return 0;
        if (len <= offset || len < 0) {
            Debug_print::dprint("Deser: No data left for list\n");
            return 0;
        }
        // The first item's size stands for all of them. Items without a byte form cannot be
        // measured against the input, so their number is bounded instead.
        int size = item_bytes();
        if (int64_t(len) < int64_t(count) * size - offset || (size == 0 && count > MAX_SIZELESS_ITEMS)) {
            Debug_print::dprint("Deser: Not enough data left for list. (%d items, %d bytes per item, off %d, len %d)\n",
                                int(count), size, offset, len);
            return 0;
        }
        items.reset(new T[count]);
        allocated = count;
        set_counters(count);
        int total = 0;
        for (uint32_t i = 0; i < count && len >= 1; ++i) {
            items[i].T::construct(name);
            int r = items[i].T::deserialise(offset, buf, len, res);
            if (r < 0) {
                Debug_print::dprint("Deser: List item %d deser failed: %d\n", int(i), r);
                return r;
            }
            if (r == 0)
                offset = std::max(offset - items[i].T::num_bytes(), 0);
            else
                offset = 0;
            buf += r;
            len -= r;
            total += r;
        }
        return total;
    }

    int _set_by_spec(Spec_node* spec_node, scale_area_t area) override
    {
        items.reset();
        allocated = 0;
        set_counters(0);
        if (!spec_node)
            return false;
        const char* filter = detail::Search_string<T>::get();
        int n = spec_node->count_children(filter);
        if (n <= 0)
            return true;
        items.reset(new T[size_t(n)]);
        allocated = uint32_t(n);
        uint32_t set = 0;
        for (int i = 0; i < n; ++i) {
            Spec_node* child = spec_node->get_child(i, filter);
            if (!child)
                break;
            items[set].construct(name);
            items[set]._set_by_spec(child, area);
            delete child;
            ++set;
        }
        allocated = set;
        set_counters(set);
        return true;
    }

    // The count line; a list of object references also shows each referenced id.
    void print_me(std::ostream& os, int indent) const override
    {
        print_indent(os, indent);
        print_basic(os, indent);
        os << " With " << length << " items" << std::endl;
        if (!detail::Reference_detail<T>::is_reference)
            return;
        for (uint32_t i = 0; i < held(); ++i) {
            print_indent(os, indent + 1);
            items[i].print_basic(os, indent + 1);
            detail::Reference_detail<T>::print(items[i], os);
            os << std::endl;
        }
    }
    atype get_type() const override { return ATTR_LIST; }

    void get_code_def(const char* prefix, std::ostream& os, int indent) override
    {
        if (held() == 0)
            return;
        code_indent_attr(os, indent);
        items[0].get_code_def_for_list(prefix, os, 0);
        os << " " << prefix << "_" << name << "[" << length << "];" << std::endl;
    }
    void get_code_body(const char* prefix, std::ostream& os, int indent) override
    {
        for (uint32_t i = 0; i < held(); ++i) {
            code_indent_attr(os, indent);
            os << prefix << "_" << name << "[" << i << "] =";
            items[i].get_code_def_for_list(prefix, os, 0);
            os << "(";
            items[i].get_code_valref_for_list(prefix, os);
            os << ");" << std::endl;
        }
    }
    void get_code_valref(const char* prefix, std::ostream& os, int) override
    {
        if (length == 0)
            os << "NULL";
        else
            os << prefix << "_" << name;
    }

private:
    // The list holds items and `len` is positive.
    int serialise_items(const Serialisation_limits* limits, int offset, uint8_t* buf, int len) const
    {
        int total = 0;
        // Asked once: the items' calls cannot be seen to leave the list alone.
        const int size = item_bytes();
        const uint32_t have = held();
        const T* const held_items = items.get();
        // Sizeless items write nothing, so only those present are visited.
        const uint32_t n = size > 0 ? length : have;
        for (uint32_t i = 0; i < n && len >= 1; ++i) {
            if (i >= have && offset >= size) {
                // Fillers wholly before the offset are skipped in one step.
                uint32_t skip = std::min<uint32_t>(uint32_t(offset / size), n - i);
                offset -= int(skip) * size;
                i += skip - 1;
                continue;
            }
            // Items are exactly T (the list makes them), so their operations are called directly.
            const T& item = i < have ? held_items[i] : filler();
            int written = item.T::serialise(limits, offset, buf, len);
            if (written == 0)
                offset = std::max(offset - item.T::num_bytes(), 0);
            else
                offset = 0;
            buf += written;
            len -= written;
            total += written;
        }
        return total;
    }
    // Size of a default item: stands for every item when checking input, and for items
    // counted but not present.
    static int item_bytes()
    {
        static const int bytes = T().num_bytes();
        return bytes;
    }
    // What an item counted but not present serialises as.
    static const T& filler()
    {
        static const T item = [] {
            T t;
            null_item(t);
            return t;
        }();
        return item;
    }
    static constexpr uint32_t MAX_SIZELESS_ITEMS = 65535;
    // Items that can refer to nothing (object references, placements) are made NULL.
    static void null_item(T& item) { null_item_if_possible(item, 0); }
    template <class U>
    static auto null_item_if_possible(U& item, int) -> decltype(item.set_null(), void())
    {
        item.set_null();
    }
    template <class U>
    static void null_item_if_possible(U&, long)
    {
    }

    std::unique_ptr<T[]> items;
    uint32_t allocated = 0;
};

// The count of a list or array, at its own place in the byte order. It stores nothing:
// it serialises the counted list's current length.
template <typename W>
class Attribute_list_len : public Attribute
{
public:
    static constexpr int WIDTH = int(sizeof(W));

    Attribute_list_len(const char* name, _Attribute_list* list, bool enabled = true)
        : Attribute(name), list(list), enabled(enabled)
    {
    }
    // Sets the count of the counted list or array; its items are given apart.
    void set(uint32_t n)
    {
        if (list)
            list->set_counters(n);
    }
    void set_enabled(bool on) { enabled = on; }
    bool is_enabled() const { return enabled; }
    // The list or array whose count this is.
    const _Attribute_list* counted() const { return list; }
    W get() const { return W(list ? list->get_length() : 0); }
    operator W() const { return get(); }

    int num_bytes() const override { return enabled ? WIDTH : 0; }
    int serialise(const Serialisation_limits*, int offset, uint8_t* buf, int len) const override
    {
        return Attribute_list_len::serialise(offset, buf, len);
    }
    int serialise(int offset, uint8_t* buf, int len) const override
    {
        if (!enabled)
            return 0;
        return write_le(list ? list->get_length() : 0, WIDTH, offset, buf, len);
    }
    int deserialise(int offset, uint8_t* buf, int len, Iso::Deserialise_results*) override
    {
        if (!enabled)
            return 0;
        if (offset < 0 || len - offset < WIDTH)
            return 0; // too little input: nothing is read
        uint32_t v = 0;
        for (int i = 0; i < WIDTH; ++i)
            v |= uint32_t(buf[offset + i]) << (8 * i);
        if (list)
            list->set_counters(v);
        return WIDTH;
    }
    int _set_by_spec(Spec_node* spec_node, scale_area_t) override
    {
        if (!spec_node)
            return false;
        W v = 0;
        int r = get_from_spec(spec_node, &v);
        if (!r)
            return r;
        if (list)
            list->set_counters(v);
        return r;
    }
    void print_me(std::ostream& os, int indent) const override
    {
        print_indent(os, indent);
        print_basic(os, indent);
        os << " Value: " << (list ? list->get_length() : 0) << std::endl;
    }
    atype get_type() const override { return ATTR_LIST_LEN; }
    void get_code_valref(const char*, std::ostream& os, int) override { os << (list ? list->get_length() : 0); }

private:
    int get_from_spec(Spec_node* s, uint8_t* v) { return s->get_uint8(v, name); }
    int get_from_spec(Spec_node* s, uint16_t* v) { return s->get_uint16(v, name); }
    int get_from_spec(Spec_node* s, uint32_t* v) { return s->get_uint32(v, name); }

    _Attribute_list* list;
    bool enabled;
};

}

#endif
