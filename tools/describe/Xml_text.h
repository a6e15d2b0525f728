#ifndef TOOLS_DESCRIBE_XML_TEXT_H
#define TOOLS_DESCRIBE_XML_TEXT_H

#include <QByteArray>
#include <QPair>
#include <QVector>

namespace VT {

// One element of a description being written: its attributes in order, the comments written
// before it and its child elements.
struct Xml_text
{
    explicit Xml_text(const QByteArray& tag) : tag(tag) {}

    // Adds an attribute; the value is escaped here.
    void set(const QByteArray& key, const QByteArray& value);
    // Adds an attribute whose value needs no escaping (numbers, hexadecimal bytes).
    void set_verbatim(const QByteArray& key, const QByteArray& value) { attributes.append({key, value}); }
    void comment(const QByteArray& text) { comments.append(text); }
    void add_child(const Xml_text& child) { children.append(child); }
    bool has(const QByteArray& key) const;

    // The element at `indent` blanks, ending in a line break. A start tag longer than a line
    // gets one attribute per line.
    QByteArray render(int indent) const;

    // Whether a text can stand in an attribute value: no control characters (zero bytes
    // included) but tab, line feed and carriage return, which are written as character
    // references.
    static bool representable(const QByteArray& latin1);
    // The value escaped for an attribute; bytes above 0x7F are ISO 8859-1 characters, written
    // in UTF-8.
    static QByteArray escape(const QByteArray& latin1);
    // Bytes as "0A 1B ..", `per_line` bytes to a line (0: one line), continuation lines
    // indented by `indent` blanks.
    static QByteArray hex(const QByteArray& bytes, int per_line = 0, int indent = 0);

    QByteArray tag;
    QVector<QPair<QByteArray, QByteArray>> attributes; // escaped values
    QVector<QByteArray> comments;
    QVector<Xml_text> children;
};

}

#endif
