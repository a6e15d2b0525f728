#ifndef TOOLS_REFERENCE_ATTRIBUTE_MEANINGS_H
#define TOOLS_REFERENCE_ATTRIBUTE_MEANINGS_H

#include <QString>
#include <cstdint>

namespace VT {

// What the bits and values of an attribute mean: facts about the objects that their classes do
// not carry. One entry means "(value & mask) == match".
struct Value_meaning
{
    uint32_t mask;
    uint32_t match;
    const char* text;
};

struct Attribute_meanings
{
    // Bit fields are written in hexadecimal and explained bit by bit; enumerations are written
    // in decimal and explained by their value.
    enum Kind { BITS, VALUES };
    Kind kind;
    const Value_meaning* entries;
    int count;
    const char* note = nullptr; // what the value means as a whole, where entries do not say it


    // The texts of the entries a value matches ("transparent, auto-wrap"); bits that no entry
    // names are listed as reserved, a value no entry names is "(not defined)". Empty for an
    // attribute without entries.
    QString explain(uint32_t value) const;
    // When an entry applies, as a reference shows it: "bit 2", "bits 0-1 = 2", "3".
    QString condition(const Value_meaning& m) const;
};

// The meanings of attribute `name` of objects of `full_type`, or null. Items of lists are named
// "list.member": "labelrefs.font_type". (Event ids are named by the check's facts.)
const Attribute_meanings* attribute_meanings(unsigned full_type, const char* name);

}

#endif
