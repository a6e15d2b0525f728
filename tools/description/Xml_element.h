#ifndef TOOLS_DESCRIPTION_XML_ELEMENT_H
#define TOOLS_DESCRIPTION_XML_ELEMENT_H

#include <QByteArray>
#include <memory>
#include <vector>

#include "vt_core.h"

namespace VT {

// An XML attribute of an element; `used` is set once the value has been asked for.
struct Xml_attribute
{
    QByteArray key; // UTF-8
    QByteArray value;
    bool used = false;
};

// A value the host supplies itself (a decoded byte string, picture data or sizes); it takes
// precedence over the XML attribute of the same key.
struct Xml_supplied
{
    QByteArray key;
    QByteArray value;
    bool binary; // raw bytes rather than text
};

// One element of a pool description: its name, XML attributes, line and children.
struct Xml_element
{
    // What an element stands for, decided by its name when it is read.
    enum Kind : unsigned char { OBJECT, LIST_ITEM, ITEM, ATTR_WRAPPER, COLOUR, POOL };
    // Elements may nest this deep: deeper texts are refused rather than walked.
    static const int MAX_DEPTH = 64;

    QByteArray name;
    std::vector<Xml_attribute> attributes; // in document order
    int line = 0;
    Kind kind = OBJECT;
    Xml_element* parent = nullptr;
    std::vector<std::unique_ptr<Xml_element>> children;

    // Filled while building: the supplied values (few, so a vector) and the object the element
    // defines.
    std::vector<Xml_supplied> supplied;
    VT_obj* object = nullptr;
    int id = -1; // the object id given or assigned; -1 while there is none

    // The kind of element a name stands for.
    static Kind kind_of(const QByteArray& element_name);
    // Hangs a freshly read element into the tree: the root when nothing is open, else the last
    // child of the innermost open element. Returns the element, now owned by the tree.
    static Xml_element* adopt(std::unique_ptr<Xml_element> element, std::unique_ptr<Xml_element>& root,
                              const std::vector<Xml_element*>& open);

    void set_name(const QByteArray& element_name);
    const QByteArray* attribute(const char* key) const;
    // The XML attribute named `key` (len bytes), or null.
    Xml_attribute* find_attribute(const char* key, size_t len);
    const Xml_attribute* find_attribute(const char* key, size_t len) const;
    void mark_used(const char* key);
    // Adds a supplied value, or replaces the one of the same key.
    void supply(const char* key, const QByteArray& value, bool binary);
    bool is_object() const { return kind == OBJECT; }       // named by a type
    bool is_list_item() const { return kind == LIST_ITEM; } // "place" or "ref"
};

}

#endif
