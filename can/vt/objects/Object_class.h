#ifndef CAN_VT_OBJECTS_OBJECT_CLASS_H
#define CAN_VT_OBJECTS_OBJECT_CLASS_H

// What every object class shares: the class-wide "type" attribute, the two attribute tables,
// the hand-over of a value constructor's values, and the checked/unchecked getter pairs.
//
// An object class declares each attribute once, at its member (the members come first, in
// byte order), with its name, range and default (the value a description starts from):
//     Attribute_uint8 key_code{1, 255, 1, "key_code"};
// gets the getters of the attributes from a list of them, after the members:
//     VT_ATTRIBUTE_GETTERS(background_colour, key_code, num_objects, num_macros)
// and names them once more in its tables, last:
//     VT_OBJECT_TABLES(TYPE_KEY, (background_colour, key_code),
//                      (background_colour, key_code, num_objects, num_macros, child_location, event_macro))
// Its constructor from a description node only hands the tables to VT_obj and fills them; its
// value constructor first hands its values to the attributes, in byte order:
//     set_values(every_attributes(), background_colour_v, key_code_v, ...);

#include <algorithm>
#include <cassert>
#include <cstdio>
#include <initializer_list>
#include <iterator>
#include <tuple>
#include <type_traits>

#include "can/vt/objects/Attribute_array.h"
#include "can/vt/objects/Attribute_colour.h"
#include "can/vt/objects/Attribute_event_macro.h"
#include "can/vt/objects/Attribute_list.h"
#include "can/vt/objects/Attribute_numbers.h"
#include "can/vt/objects/Attribute_object_id.h"
#include "can/vt/objects/Attribute_object_placement.h"
#include "can/vt/objects/VT_obj.h"

namespace VT {

// The "type" attribute of a class (AID 0): one per class, built on first use.
template <unsigned TYPE>
Attribute_uint8* class_type_attribute()
{
    static Attribute_uint8 attribute(0, 255, uint8_t(TYPE & 0xFF), "type");
    return &attribute;
}

// Copies the entries into a table and closes it with the trailing null slot.
template <size_t N>
void set_table(Attribute* (&table)[N], std::initializer_list<Attribute*> entries)
{
    assert(entries.size() + 1 == N);
    const size_t n = std::min(entries.size(), N - 1);
    std::copy_n(entries.begin(), n, table);
    std::fill(table + n, table + N, nullptr);
}

// The same from the attributes themselves; the table holds exactly them and its null slot.
template <size_t N, class... A>
void fill_table(Attribute* (&table)[N], const std::tuple<A&...>& attributes)
{
    static_assert(sizeof...(A) + 1 == N, "a table holds its attributes and a null slot");
    std::apply(
        [&table](A&... a) {
            Attribute* const entries[N] = {static_cast<Attribute*>(&a)..., nullptr};
            std::copy(std::begin(entries), std::end(entries), table);
        },
        attributes);
}

// A value of a value constructor, given to its attribute: scalars through their range-checked
// assignment (clamped with the warning), a count to the list or array it counts, the items of
// a list copied, the elements of an array borrowed (each as many as the count before them said).
template <class A, class V, std::enable_if_t<!std::is_pointer_v<V>, int> = 0>
void set_value(A& attribute, V value)
{
    attribute = value;
}
template <class W, class V>
void set_value(Attribute_list_len<W>& count, V n)
{
    count.set(uint32_t(n));
}
template <class T>
void set_value(Attribute_list<T>& list, const T* items)
{
    list.set_items(items, list.get_length());
}
template <class T>
void set_value(Attribute_array<T>& array, T* elements)
{
    array.set_buf(elements, int(array.get_length()));
}

// Gives a value constructor's values to the serialised attributes, in byte order.
template <class... A, class... V>
void set_values(const std::tuple<A&...>& attributes, const V&... values)
{
    static_assert(sizeof...(A) == sizeof...(V), "one value per serialised attribute");
    std::apply([&](A&... a) { (set_value(a, values), ...); }, attributes);
}

// Index of the first placement in `list` of object `id`, or -1.
inline int find_child_location(const Attribute_list<Attribute_object_placement>& list, unsigned short id)
{
    for (uint32_t i = 0; i < list.held(); ++i)
        if (list[i].get_object_id() == id)
            return int(i);
    return -1;
}

// The line that objects holding raw bytes add to their print, one level below `indent`:
// "Bytes: " and the first n bytes of the array in hex, each followed by two blanks.
inline void print_bytes_line(std::ostream& os, int indent, const Attribute_array_uint8& bytes, uint32_t n)
{
    print_indent(os, indent + 1);
    os << "Bytes: ";
    for (uint32_t i = 0; i < n; ++i) {
        char text[4];
        snprintf(text, sizeof text, "%02x", unsigned(bytes[i]));
        os << text << "  ";
    }
    os << std::endl << std::dec;
}

}

#define VT_UNPAREN(...) __VA_ARGS__

// M(A) for each of up to 24 arguments A.
#define VT_FOR_EACH_1(M, A) M(A)
#define VT_FOR_EACH_2(M, A, ...) M(A) VT_FOR_EACH_1(M, __VA_ARGS__)
#define VT_FOR_EACH_3(M, A, ...) M(A) VT_FOR_EACH_2(M, __VA_ARGS__)
#define VT_FOR_EACH_4(M, A, ...) M(A) VT_FOR_EACH_3(M, __VA_ARGS__)
#define VT_FOR_EACH_5(M, A, ...) M(A) VT_FOR_EACH_4(M, __VA_ARGS__)
#define VT_FOR_EACH_6(M, A, ...) M(A) VT_FOR_EACH_5(M, __VA_ARGS__)
#define VT_FOR_EACH_7(M, A, ...) M(A) VT_FOR_EACH_6(M, __VA_ARGS__)
#define VT_FOR_EACH_8(M, A, ...) M(A) VT_FOR_EACH_7(M, __VA_ARGS__)
#define VT_FOR_EACH_9(M, A, ...) M(A) VT_FOR_EACH_8(M, __VA_ARGS__)
#define VT_FOR_EACH_10(M, A, ...) M(A) VT_FOR_EACH_9(M, __VA_ARGS__)
#define VT_FOR_EACH_11(M, A, ...) M(A) VT_FOR_EACH_10(M, __VA_ARGS__)
#define VT_FOR_EACH_12(M, A, ...) M(A) VT_FOR_EACH_11(M, __VA_ARGS__)
#define VT_FOR_EACH_13(M, A, ...) M(A) VT_FOR_EACH_12(M, __VA_ARGS__)
#define VT_FOR_EACH_14(M, A, ...) M(A) VT_FOR_EACH_13(M, __VA_ARGS__)
#define VT_FOR_EACH_15(M, A, ...) M(A) VT_FOR_EACH_14(M, __VA_ARGS__)
#define VT_FOR_EACH_16(M, A, ...) M(A) VT_FOR_EACH_15(M, __VA_ARGS__)
#define VT_FOR_EACH_17(M, A, ...) M(A) VT_FOR_EACH_16(M, __VA_ARGS__)
#define VT_FOR_EACH_18(M, A, ...) M(A) VT_FOR_EACH_17(M, __VA_ARGS__)
#define VT_FOR_EACH_19(M, A, ...) M(A) VT_FOR_EACH_18(M, __VA_ARGS__)
#define VT_FOR_EACH_20(M, A, ...) M(A) VT_FOR_EACH_19(M, __VA_ARGS__)
#define VT_FOR_EACH_21(M, A, ...) M(A) VT_FOR_EACH_20(M, __VA_ARGS__)
#define VT_FOR_EACH_22(M, A, ...) M(A) VT_FOR_EACH_21(M, __VA_ARGS__)
#define VT_FOR_EACH_23(M, A, ...) M(A) VT_FOR_EACH_22(M, __VA_ARGS__)
#define VT_FOR_EACH_24(M, A, ...) M(A) VT_FOR_EACH_23(M, __VA_ARGS__)
#define VT_FOR_EACH_PICK(_1, _2, _3, _4, _5, _6, _7, _8, _9, _10, _11, _12, _13, _14, _15, _16, _17, _18, _19, _20, \
                         _21, _22, _23, _24, NAME, ...)                                                             \
    NAME
#define VT_FOR_EACH(M, ...)                                                                                          \
    VT_FOR_EACH_PICK(__VA_ARGS__, VT_FOR_EACH_24, VT_FOR_EACH_23, VT_FOR_EACH_22, VT_FOR_EACH_21, VT_FOR_EACH_20,    \
                     VT_FOR_EACH_19, VT_FOR_EACH_18, VT_FOR_EACH_17, VT_FOR_EACH_16, VT_FOR_EACH_15, VT_FOR_EACH_14, \
                     VT_FOR_EACH_13, VT_FOR_EACH_12, VT_FOR_EACH_11, VT_FOR_EACH_10, VT_FOR_EACH_9, VT_FOR_EACH_8,   \
                     VT_FOR_EACH_7, VT_FOR_EACH_6, VT_FOR_EACH_5, VT_FOR_EACH_4, VT_FOR_EACH_3, VT_FOR_EACH_2,       \
                     VT_FOR_EACH_1, )                                                                                \
    (M, __VA_ARGS__)

// The tables of an object class of type TYPE, from its attribute members: AIDS names them by
// attribute id from 1 on (AID 0 is the class's "type"), EVERY names the serialised ones in byte
// order, both in parentheses. Defines get_ctype(), the ids AID::<attribute> (AID::type is 0),
// every_attributes() (for set_values) and their number NUM_EVERY, init_lists() filling the
// tables, and the tables themselves, tables.aid and tables.every, sized from the lists. Stands
// after the attribute members; what follows it is private.
#define VT_OBJECT_TABLES(TYPE, AIDS, EVERY)                                                                         \
public:                                                                                                             \
    type_t get_ctype() const override                                                                               \
    {                                                                                                               \
        return TYPE;                                                                                                \
    }                                                                                                               \
    struct AID                                                                                                      \
    {                                                                                                               \
        enum : uint8_t { type, VT_UNPAREN AIDS };                                                                   \
    };                                                                                                              \
                                                                                                                    \
protected:                                                                                                          \
    auto every_attributes()                                                                                         \
    {                                                                                                               \
        return std::tie(VT_UNPAREN EVERY);                                                                          \
    }                                                                                                               \
    static constexpr size_t NUM_EVERY = std::tuple_size_v<decltype(std::tie(VT_UNPAREN EVERY))>;                    \
                                                                                                                    \
private:                                                                                                            \
    void init_lists()                                                                                               \
    {                                                                                                               \
        fill_table(tables.aid, std::tuple_cat(std::tie(*class_type_attribute<TYPE>()), std::tie(VT_UNPAREN AIDS))); \
        fill_table(tables.every, every_attributes());                                                               \
    }                                                                                                               \
    struct                                                                                                          \
    {                                                                                                               \
        Attribute* aid[std::tuple_size_v<decltype(std::tie(VT_UNPAREN AIDS))> + 2];                                 \
        Attribute* every[NUM_EVERY + 1];                                                                            \
    } tables;

// A class whose type the type catalogue leaves unnamed (the ISO 11783-6 forms of the version 6
// objects) names it itself, for printouts, generated source and the host's tables. Stands in
// the public part of the class.
#define VT_OWN_TYPE_NAME(NAME)                                                                                       \
    static constexpr const char* TYPE_NAME = NAME;                                                                  \
    const char* __get_type_string() const override                                                                  \
    {                                                                                                               \
        return TYPE_NAME;                                                                                           \
    }

// get_NAME() takes the lock around _get_NAME(), which only checks that the lock is held;
// SPECIFIER follows the checked getter (override, where it implements an interface's).
#define VT_GETTER_SPECIFIED(TYPE, NAME, EXPR, SPECIFIER)   \
    TYPE get_##NAME() const SPECIFIER                      \
    {                                                      \
        const Lock guard(*this);                           \
        return _get_##NAME();                              \
    }                                                      \
    TYPE _get_##NAME() const VT_UNCHECKED_SPECIFIER(NAME) \
    {                                                      \
        __check_locked();                                  \
        return static_cast<TYPE>(EXPR);                    \
    }

// The unchecked getters of "width" and "height" implement VT_obj's size getters and say so
// (compilers warn about overrides that do not); every other name gives nothing.
#define VT_UNCHECKED_SPECIFIER(NAME) VT_SECOND_OF(VT_SIZE_GETTER_##NAME, , ~)
#define VT_SIZE_GETTER_width ~, override
#define VT_SIZE_GETTER_height ~, override
#define VT_SECOND_OF(...) VT_SECOND_OF_(__VA_ARGS__)
#define VT_SECOND_OF_(A, B, ...) B

#define VT_GETTER(TYPE, NAME, EXPR) VT_GETTER_SPECIFIED(TYPE, NAME, EXPR, )

// The same for a field of list entry i.
#define VT_INDEXED_GETTER(TYPE, NAME, EXPR) \
    TYPE get_##NAME(unsigned int i) const   \
    {                                       \
        const Lock guard(*this);            \
        return _get_##NAME(i);              \
    }                                       \
    TYPE _get_##NAME(unsigned int i) const  \
    {                                       \
        __check_locked();                   \
        return static_cast<TYPE>(EXPR);     \
    }

#define VT_ATTRIBUTE_GETTER(TYPE, NAME) VT_GETTER(TYPE, NAME, NAME.get())
// The getters of each attribute named, returning its value's type; after the attributes.
#define VT_ATTRIBUTE_GETTERS(...) VT_FOR_EACH(VT_DEDUCED_ATTRIBUTE_GETTER, __VA_ARGS__)
#define VT_DEDUCED_ATTRIBUTE_GETTER(NAME) VT_GETTER(decltype(NAME.get()), NAME, NAME.get())
// An attribute's getters where the checked one implements an interface's.
#define VT_ATTRIBUTE_GETTER_OVERRIDE(TYPE, NAME) VT_GETTER_SPECIFIED(TYPE, NAME, NAME.get(), override)

// The size of an object whose "width" and "height" attributes are its size.
#define VT_SIZE_FROM_ATTRIBUTES           \
    uint16_t _get_width() const override  \
    {                                     \
        __check_locked();                 \
        return width;                     \
    }                                     \
    uint16_t _get_height() const override \
    {                                     \
        __check_locked();                 \
        return height;                    \
    }

// The children placed in LIST of an object with a size of its own: justify_placements() lays
// the justified ones out within the size less MARGIN pixels on each side, __get_child_loc(id)
// is the index of the first placement of object id, or -1.
#define VT_PLACED_CHILDREN(LIST, MARGIN)                                                            \
    void justify_placements()                                                                       \
    {                                                                                               \
        const Lock guard(*this);                                                                    \
        __justify_placements();                                                                     \
    }                                                                                               \
    void __justify_placements()                                                                     \
    {                                                                                               \
        __check_locked();                                                                           \
        justify(LIST, int16_t(_get_width() - 2 * (MARGIN)), int16_t(_get_height() - 2 * (MARGIN))); \
    }                                                                                               \
    int __get_child_loc(unsigned short id) const                                                    \
    {                                                                                               \
        return find_child_location(LIST, id);                                                       \
    }

#define VT_CHILD_LOCATION_GETTERS(LIST)                                                  \
    VT_INDEXED_GETTER(unsigned short, child_location_object_id, LIST[i].get_object_id()) \
    VT_INDEXED_GETTER(short, child_location_x_location, LIST[i].get_x())                 \
    VT_INDEXED_GETTER(short, child_location_y_location, LIST[i].get_y())                 \
    VT_INDEXED_GETTER(unsigned char, child_location_justification, LIST[i].get_justification())

#define VT_EVENT_MACRO_GETTERS(LIST)                                               \
    VT_INDEXED_GETTER(unsigned char, event_macro_event_id, LIST[i].get_event_id()) \
    VT_INDEXED_GETTER(unsigned char, event_macro_macro_id, LIST[i].get_macro_id())

// The character accessors of an object's text, over an Attribute_array_char member ARRAY:
//   _get_string()            the whole text, or an empty string;
//   get_string(i)            character i, NUL past the end;
//   get_string(i, dst, n)    copies up to n characters from i (no terminator), 1 if any.
#define VT_STRING_GETTERS(ARRAY)                             \
    const char* _get_string() const                          \
    {                                                        \
        __check_locked();                                    \
        return ARRAY.c_str();                                \
    }                                                        \
    char get_string(unsigned i) const                        \
    {                                                        \
        const Lock guard(*this);                             \
        return *_get_string(i);                              \
    }                                                        \
    const char* _get_string(unsigned i) const                \
    {                                                        \
        __check_locked();                                    \
        return i < ARRAY.get_length() ? &ARRAY[i] : "";      \
    }                                                        \
    int get_string(unsigned i, char* dst, unsigned n) const  \
    {                                                        \
        const Lock guard(*this);                             \
        return _get_string(i, dst, n);                       \
    }                                                        \
    int _get_string(unsigned i, char* dst, unsigned n) const \
    {                                                        \
        __check_locked();                                    \
        return ARRAY.get_elements(i, dst, n) > 0 ? 1 : 0;    \
    }

// The data accessors of a picture object, over a uint8 array ARRAY of which the first HELD
// bytes are really there:
//   get_bytes()                 the data (null when there is none);
//   get_bytes(i)                a pointer to byte i, or to a zero byte past the data;
//   get_bytes(offset, out, n)   copies up to n bytes from offset into out; true if any.
#define VT_BYTES_GETTERS(ARRAY, HELD)                                       \
    VT_GETTER(const unsigned char*, bytes, ARRAY.get_buf())                 \
    VT_INDEXED_GETTER(const unsigned char*, bytes, &ARRAY.element(i, HELD)) \
    bool get_bytes(unsigned offset, unsigned char* out, unsigned n) const   \
    {                                                                       \
        const Lock guard(*this);                                            \
        return _get_bytes(offset, out, n);                                  \
    }                                                                       \
    bool _get_bytes(unsigned offset, unsigned char* out, unsigned n) const  \
    {                                                                       \
        __check_locked();                                                   \
        return ARRAY.copy_elements(offset, out, n, HELD) > 0;               \
    }

#endif
