#ifndef TOOLS_CHECK_OBJECT_FACTS_H
#define TOOLS_CHECK_OBJECT_FACTS_H

#include <QString>
#include <cstdint>
#include <initializer_list>

// What a terminal expects of the objects of a pool, one table per kind of fact: which objects
// a reference may name, which events an object raises, which values must lie in a range, and
// which attribute values a terminal only understands from some VT version on. The checks in
// Rules.cpp read these tables; nothing else here decides anything.
namespace VT {
namespace Check {

// A set of object types, as a bit mask: those of ISO 11783-6 (below 62) by their number, and the
// ISO forms of types 46 and 47 (full types 302 and 303) in bits 62 and 63.
typedef uint64_t Type_set;
constexpr unsigned TYPE_SET_BITS = 8 * sizeof(Type_set);
// The bit of a type in a set; TYPE_SET_BITS for types no set holds.
constexpr unsigned type_bit(unsigned type)
{
    return type < TYPE_SET_BITS - 2 ? type : type == 46 + 256 ? 62 : type == 47 + 256 ? 63 : TYPE_SET_BITS;
}
// The type of a bit of a set.
constexpr unsigned bit_type(unsigned bit)
{
    return bit == 62 ? 46 + 256 : bit == 63 ? 47 + 256 : bit;
}
constexpr Type_set types(std::initializer_list<unsigned> list)
{
    Type_set s = 0;
    for (unsigned t : list)
        if (type_bit(t) < TYPE_SET_BITS)
            s |= Type_set(1) << type_bit(t);
    return s;
}
inline bool holds(Type_set set, unsigned type)
{
    return type_bit(type) < TYPE_SET_BITS && (set >> type_bit(type)) & 1;
}
// The names of the types of a set: "Data_mask or Alarm_mask".
QString type_names(Type_set set);

// --- VT versions of object types -------------------------------------------------------------

// The VT version that introduced an object type (0 for the system's own types): each version
// added the types numbered after the last type of the version before.
int type_version(unsigned type);

// --- Where a terminal starts ---------------------------------------------------------------

// Objects a terminal reaches without another object naming them: the working set, the masks,
// macros, auxiliary objects, the objects a pool offers as a whole (external definitions,
// colour maps and palettes, label references, special controls), and the system's own types,
// which a host draws itself.
bool is_root(unsigned type);

// --- References ---------------------------------------------------------------------------

enum class Null_rule : uint8_t {
    allowed,         // the NULL id means "none"
    never,           // the object cannot be drawn or used without it
    not_with_pattern // needed when the fill type is 3 (pattern fill)
};

struct Reference_fact
{
    unsigned owner;        // object type holding the reference
    const char* attribute; // its attribute; list members as "list.member"
    Type_set accepted;     // 0: any object
    Null_rule null;
    const char* hint;      // what to do when it names the wrong kind of object
};

// The fact for an attribute of an object type, or null when nothing restricts it.
const Reference_fact* reference_fact(unsigned owner_type, const char* attribute);

// --- Events -------------------------------------------------------------------------------

enum class Event_kind : uint8_t { defined, reserved, proprietary, extended_reference };
Event_kind event_kind(unsigned event);
// "On Key Press (24)"
const char* event_name(unsigned event);
// Whether an object of the type ever raises the event. Types the table does not know (the
// system's own) raise every defined event.
bool raises(unsigned type, unsigned event);
// The events an object of the type raises: "On Show (3), On Hide (4), ...".
QString events_of(unsigned type);

// --- Number ranges ------------------------------------------------------------------------

// A value shown against a scale: min <= max, and each value shown (the variable's, when the
// object names one) inside [min, max].
struct Shown_value
{
    const char* value;    // null: none
    const char* variable; // the reference whose variable's value is shown instead, or null
};
struct Range_fact
{
    unsigned type;
    const char* min;
    const char* max;
    Shown_value shown[2];
};
extern const Range_fact range_facts[];
extern const int range_fact_count;

// An index into a list of the object's own: below the number of items, or `none`.
struct Index_fact
{
    unsigned type;
    const char* index;
    const char* list;     // the attribute holding the items
    const char* variable; // the reference whose variable's value is the index instead, or null
    int none;             // the value meaning "no item", or -1
};
extern const Index_fact index_facts[];
extern const int index_fact_count;

// --- VT versions of attribute values -------------------------------------------------------

// Bits of an attribute that only terminals of `version` or later understand.
struct Value_version
{
    unsigned type;
    const char* attribute;
    uint32_t bits;
    int version;
    const char* meaning;
};
extern const Value_version value_versions[];
extern const int value_version_count;
// The VT version from which terminals understand every one of `bits` of the attribute: the
// latest of the entries above that name any of them, 2 when none does.
int value_version(unsigned type, const char* attribute, uint32_t bits);

}
}

#endif
