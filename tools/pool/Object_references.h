#ifndef TOOLS_POOL_OBJECT_REFERENCES_H
#define TOOLS_POOL_OBJECT_REFERENCES_H

#include <QByteArray>
#include <QVector>

#include "vt_core.h"

namespace VT {

// One reference from an object to another, found by walking the object's attributes.
struct Object_reference
{
    enum Kind { CHILD, REFERENCE, MACRO };
    Kind kind;
    QByteArray attribute; // name of the attribute (the list, for list items)
    int attribute_index;  // its index in the object's byte order
    uint16_t id;          // 65535: the NULL reference
};

// Every reference the object holds, in byte order: children, single references and event macros.
QVector<Object_reference> object_references(VT_obj& obj);

}

#endif
