#include "tools/describe/Xml_text.h"

namespace VT {

namespace {
const int LINE = 110;
}

void Xml_text::set(const QByteArray& key, const QByteArray& value)
{
    attributes.append({key, escape(value)});
}

bool Xml_text::has(const QByteArray& key) const
{
    for (const auto& a : attributes)
        if (a.first == key)
            return true;
    return false;
}

bool Xml_text::representable(const QByteArray& latin1)
{
    for (char c : latin1)
        if (uchar(c) < 0x20 && c != '\t' && c != '\n' && c != '\r')
            return false;
    return true;
}

QByteArray Xml_text::escape(const QByteArray& latin1)
{
    QByteArray out;
    out.reserve(latin1.size() + 8);
    for (char c : latin1) {
        switch (c) {
        case '&': out += "&amp;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '"': out += "&quot;"; break;
        // Written out, these would read back as blanks.
        case '\t': out += "&#9;"; break;
        case '\n': out += "&#10;"; break;
        case '\r': out += "&#13;"; break;
        default:
            if (uchar(c) < 0x80) {
                out += c;
            } else {
                out += char(0xC0 | uchar(c) >> 6);
                out += char(0x80 | (uchar(c) & 0x3F));
            }
        }
    }
    return out;
}

QByteArray Xml_text::hex(const QByteArray& bytes, int per_line, int indent)
{
    static const char digits[] = "0123456789ABCDEF";
    QByteArray out;
    out.reserve(bytes.size() * 3 + (per_line ? bytes.size() / per_line * (indent + 1) : 0));
    for (int i = 0; i < bytes.size(); ++i) {
        if (i > 0) {
            if (per_line && i % per_line == 0)
                out += '\n' + QByteArray(indent, ' ');
            else
                out += ' ';
        }
        out += digits[uchar(bytes[i]) >> 4];
        out += digits[uchar(bytes[i]) & 15];
    }
    return out;
}

QByteArray Xml_text::render(int indent) const
{
    const QByteArray pad(indent, ' ');
    QByteArray out;
    for (const QByteArray& c : comments)
        out += pad + "<!-- " + c + " -->\n";
    // Attributes fill a line; those that do not fit go on the next, under the first attribute.
    QByteArray start = pad + "<" + tag;
    const QByteArray align(start.size() + 1, ' ');
    int column = start.size();
    for (const auto& a : attributes) {
        const QByteArray written = a.first + "=\"" + a.second + "\"";
        const int first_line = written.indexOf('\n') < 0 ? written.size() : written.indexOf('\n');
        if (column + 1 + first_line > LINE && column > align.size()) {
            start += "\n" + align;
            column = align.size();
        } else {
            start += ' ';
            ++column;
        }
        start += written;
        column += written.contains('\n') ? LINE : written.size();
    }
    if (children.isEmpty())
        return out + start + "/>\n";
    out += start + ">\n";
    for (const Xml_text& c : children)
        out += c.render(indent + 2);
    return out + pad + "</" + tag + ">\n";
}

}
