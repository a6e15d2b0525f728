#ifndef TOOLS_REFERENCE_REFERENCE_H
#define TOOLS_REFERENCE_REFERENCE_H

#include <QString>

#include "tools/reference/Class_facts.h"

namespace VT {

// The object reference a pool author works from, made from the classes themselves (Class_facts),
// the meanings of options and enumerations (Attribute_meanings) and the names a description
// accepts (Attribute_names): as plain text for vtpool, and as Markdown for docs/objects.md.
class Reference
{
public:
    // Every type with its number, the VT version that has it and its bytes without lists.
    static QString types_text();
    // One type's attributes in byte order: byte, size, kind, range, default, AID, meanings.
    static QString attributes_text(const Class_facts& facts);
    // The whole reference as Markdown.
    static QString markdown();
};

}

#endif
