#ifndef CAN_VT_OBJECTS_BASE_INPUT_STRING_GETTERS_H
#define CAN_VT_OBJECTS_BASE_INPUT_STRING_GETTERS_H

// The character accessors of the string fields (input and output string), over an
// Attribute_array_char member ARRAY:
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
