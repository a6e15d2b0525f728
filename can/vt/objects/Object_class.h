#ifndef CAN_VT_OBJECTS_OBJECT_CLASS_H
#define CAN_VT_OBJECTS_OBJECT_CLASS_H

// What every object class shares: the class-wide "type" attribute, the filling of the two
// attribute tables, and the checked/unchecked getter pairs.

#include <algorithm>
#include <cassert>
#include <initializer_list>

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

}

// get_NAME() takes the lock around _get_NAME(), which only checks that the lock is held.
#define VT_GETTER(TYPE, NAME, EXPR)             \
    TYPE get_##NAME() const                     \
    {                                           \
        lock();                                 \
        TYPE v = _get_##NAME();                 \
        unlock();                               \
        return v;                               \
    }                                           \
    TYPE _get_##NAME() const                    \
    {                                           \
        __check_locked();                       \
        return static_cast<TYPE>(EXPR);         \
    }

// The same for a field of list entry i.
#define VT_INDEXED_GETTER(TYPE, NAME, EXPR)     \
    TYPE get_##NAME(unsigned int i) const       \
    {                                           \
        lock();                                 \
        TYPE v = _get_##NAME(i);                \
        unlock();                               \
        return v;                               \
    }                                           \
    TYPE _get_##NAME(unsigned int i) const      \
    {                                           \
        __check_locked();                       \
        return static_cast<TYPE>(EXPR);         \
    }

#define VT_ATTRIBUTE_GETTER(TYPE, NAME) VT_GETTER(TYPE, NAME, NAME.get())

#define VT_CHILD_LOCATION_GETTERS(LIST)                                                      \
    VT_INDEXED_GETTER(unsigned short, child_location_object_id, LIST[i].get_object_id())    \
    VT_INDEXED_GETTER(short, child_location_x_location, LIST[i].get_x())                    \
    VT_INDEXED_GETTER(short, child_location_y_location, LIST[i].get_y())                    \
    VT_INDEXED_GETTER(unsigned char, child_location_justification, LIST[i].get_justification())

#define VT_EVENT_MACRO_GETTERS(LIST)                                                 \
    VT_INDEXED_GETTER(unsigned char, event_macro_event_id, LIST[i].get_event_id())  \
    VT_INDEXED_GETTER(unsigned char, event_macro_macro_id, LIST[i].get_macro_id())

// The character accessors of an object's text, over an Attribute_array_char member ARRAY:
//   _get_string()            the whole text, or an empty string;
//   get_string(i)            character i, NUL past the end;
//   get_string(i, dst, n)    copies up to n characters from i (no terminator), 1 if any.
#define VT_STRING_GETTERS(ARRAY)                                      \
    const char* _get_string() const                                   \
    {                                                                 \
        __check_locked();                                             \
        return ARRAY.c_str();                                         \
    }                                                                 \
    char get_string(unsigned i) const                                 \
    {                                                                 \
        lock();                                                       \
        char c = *_get_string(i);                                     \
        unlock();                                                     \
        return c;                                                     \
    }                                                                 \
    const char* _get_string(unsigned i) const                         \
    {                                                                 \
        __check_locked();                                             \
        return i < ARRAY.get_length() ? &ARRAY[i] : "";               \
    }                                                                 \
    int get_string(unsigned i, char* dst, unsigned n) const           \
    {                                                                 \
        lock();                                                       \
        int r = _get_string(i, dst, n);                               \
        unlock();                                                     \
        return r;                                                     \
    }                                                                 \
    int _get_string(unsigned i, char* dst, unsigned n) const          \
    {                                                                 \
        __check_locked();                                             \
        return ARRAY.get_elements(i, dst, n) > 0 ? 1 : 0;             \
    }


#endif
