#ifndef TOOLS_POOL_PLAIN_LAYOUT_H
#define TOOLS_POOL_PLAIN_LAYOUT_H

#include <cstdint>
#include <memory>
#include <vector>

#include "vt_core.h"

namespace VT {

// The bytes of an object class that are a run of plain parts: numbers with their ranges, counts,
// the lists and arrays they count, floats. It is taken from an object of the class, from the
// byte-order table that deserialise walks; a class with any other part has no plain layout.
//
// With it, the pool reader checks an object's bytes without building the object: check() gives
// the number of bytes the object takes when building it from them will neither fail nor clamp a
// value (so the library will say nothing either), else -1, and the reader then builds the object
// at once to report what happened.
class Plain_layout
{
public:
    // Null when some part of the class is not plain.
    static std::unique_ptr<Plain_layout> of(const VT_obj& sample);

    int check(const uint8_t* at, int len) const;

private:
    // Whether `count` list items from `at` read, by the item class's own reading, without a clamp.
    typedef bool (*Items_check)(const uint8_t* at, uint32_t count);
    static const int MAX_COUNTS = 8;

    struct Part
    {
        // bytes: numbers and floats that take every value their bytes can hold, one after the
        // other; number: one whose range is narrower.
        enum Kind : uint8_t { bytes, number, count, items };
        Kind kind;
        bool is_signed; // a number
        uint8_t counter; // a count: which counter it sets; items: which counter gives their number
        uint32_t width; // of the run of bytes, the number, the count or each item or element
        int64_t min, max; // a number's range
        Items_check check; // items that are not plain bytes, or null
    };
    static void add_bytes(uint32_t width, std::vector<Part>& parts);

    template <class A>
    static bool add_number(const Attribute& a, std::vector<Part>& parts);
    template <class W>
    static bool add_count(const Attribute& a, std::vector<Part>& parts, std::vector<const Attribute*>& counted);
    template <class T>
    static bool add_list(const Attribute& a, std::vector<Part>& parts, std::vector<const Attribute*>& counted);
    template <class T>
    static bool add_array(const Attribute& a, std::vector<Part>& parts, std::vector<const Attribute*>& counted);
    static bool add_counted(const Attribute& a, int width, Items_check check, std::vector<Part>& parts,
                            std::vector<const Attribute*>& counted);

    std::vector<Part> parts;
};

}

#endif
