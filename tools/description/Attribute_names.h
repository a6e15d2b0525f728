#ifndef TOOLS_DESCRIPTION_ATTRIBUTE_NAMES_H
#define TOOLS_DESCRIPTION_ATTRIBUTE_NAMES_H

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include "tools/description/Xml_element.h"

namespace VT {

// The attribute names a description may use beyond the classes' own: the names ISO 11783-6
// gives attributes where they differ from the class's (number_of_decimals for no_decimals),
// and the nearest known name for one that is not known.
class Attribute_names
{
public:
    struct Alias
    {
        const char* element; // an object type or item element
        const char* alias;
        const char* name; // the class's name for it
    };
    static const QList<Alias>& aliases();
    // The other names of an attribute of an element ("number_of_decimals" for no_decimals).
    static QList<QByteArray> aliases_of(const QByteArray& element, const QByteArray& name);

    // Renames the attributes of an element given under another name to the class's names;
    // returns a problem for each attribute given under both.
    static QStringList resolve(Xml_element& e);

    // The names an element knows: its class's attributes and the description's own, and the
    // other names it accepts.
    static QList<QByteArray> known(const QByteArray& element, bool with_aliases = true);
    // " (did you mean 'no_decimals'?)" for a key close to a known name, else empty.
    static QString suggestion(const QByteArray& element, const QByteArray& key);
};

}

#endif
