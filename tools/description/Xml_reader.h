#ifndef TOOLS_DESCRIPTION_XML_READER_H
#define TOOLS_DESCRIPTION_XML_READER_H

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <memory>

#include "tools/description/Xml_element.h"

namespace VT {

// Reads the XML text of a description into a tree of elements.
class Xml_reader
{
public:
    // The root element, or null when the text is not well-formed XML or holds no element. The
    // reasons are added to `problems` as "file:line: text" lines; text between elements is one
    // too, though the tree is still returned.
    static std::unique_ptr<Xml_element> read(const QByteArray& xml, const QString& file, QStringList& problems);
};

}

#endif
