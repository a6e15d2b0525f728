#ifndef TOOLS_REFERENCE_CLASS_FACTS_H
#define TOOLS_REFERENCE_CLASS_FACTS_H

#include <QByteArray>
#include <QString>
#include <QVector>

#include "tools/pool/Object_factory.h"

namespace VT {

// What an object class says of its attributes when asked: names, byte order and sizes, ranges,
// addressability and what a description gets when it leaves an attribute out. Read once per
// class from a freshly made object, so that it is always what the classes themselves do.
struct Attribute_facts
{
    enum Shape { SCALAR, COUNT, LIST, ARRAY, TEXT };

    QByteArray name;
    int index = 0;              // in byte order
    Attribute::atype atype = Attribute::ATTR_UINT8;
    Shape shape = SCALAR;
    int aid = -1;               // -1: not addressable
    bool travels = true;        // false: the class shows it, but it is no part of the object's bytes
    int offset = -1;            // byte offset in the object (id and type included); -1 after a list
    int size = 0;               // bytes of a scalar or count; of one item of a list or array
    bool is_signed = false;
    bool has_range = false;
    qint64 min = 0, max = 0;
    QByteArray counts;          // a count: the list or array it counts
    QByteArray item_element;    // a list: the child element its items are written as
    QByteArray default_bytes;   // byte form when a description leaves the attribute out
    // The value of a byte form of this attribute (little-endian, signed where the attribute
    // is), and the byte form of a value.
    qint64 value_of(const QByteArray& bytes) const;
    QByteArray bytes_of(qint64 value) const;
    // The attribute's kind as the reference shows it: "uint8", "colour", "object id",
    // "count of child_location", "list of 6-byte placements", "text".
    QString kind() const;
};

struct Class_facts
{
    const Object_factory::Entry* entry = nullptr;
    unsigned type = 0;        // full type
    QByteArray name;          // the type's name, as descriptions write it
    int vt_version = 0;       // 0: a type of this system's own
    int fixed_bytes = 0;      // bytes of an object whose lists are all empty
    QVector<Attribute_facts> attributes; // in byte order

    const Attribute_facts* find(const QByteArray& attribute) const;
};

// The facts of the class of a full type or of a type name; null for a type without a class.
const Class_facts* class_facts(unsigned full_type);
const Class_facts* class_facts(const QByteArray& type_name);
// Every class, in catalogue order.
const QVector<const Class_facts*>& all_class_facts();

// The byte form of one attribute as written for a terminal with the default limits (256
// colours, every font); the object's lock is taken by the caller.
QByteArray attribute_bytes(const Attribute& a);

}

#endif
