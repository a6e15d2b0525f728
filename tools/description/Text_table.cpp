#include "tools/description/Text_table.h"

#include <QHash>

namespace VT {

namespace {

bool blank(char c)
{
    return c == ' ' || c == '\t';
}

// One line of a table, read from `p` up to `end`; false with `why` set when it does not read.
bool read_line(const char* p, const char* end, Text_table::Entry& entry, QString& why)
{
    const char* name = p;
    while (p < end && !blank(*p) && *p != '=' && *p != '"')
        ++p;
    if (p == name) {
        why = QStringLiteral("a line must be NAME = \"TEXT\"");
        return false;
    }
    entry.name = QByteArray(name, int(p - name));
    while (p < end && blank(*p))
        ++p;
    if (p == end || *p != '=') {
        why = QStringLiteral("'=' must follow the name '%1'").arg(QString::fromUtf8(entry.name));
        return false;
    }
    ++p;
    while (p < end && blank(*p))
        ++p;
    if (p == end || *p != '"') {
        why = QStringLiteral("the text of '%1' must be in double quotes").arg(QString::fromUtf8(entry.name));
        return false;
    }
    ++p;
    QByteArray text;
    for (;; ++p) {
        if (p == end) {
            why = QStringLiteral("the text of '%1' has no closing quote").arg(QString::fromUtf8(entry.name));
            return false;
        }
        const char c = *p;
        if (c == '"')
            break;
        if (uchar(c) < 0x20 && c != '\t') {
            why = QStringLiteral("the text of '%1' holds a control character (write \\n for a line break)")
                      .arg(QString::fromUtf8(entry.name));
            return false;
        }
        if (c != '\\') {
            text += c;
            continue;
        }
        const char escaped = ++p < end ? *p : '\0';
        if (escaped == 'n')
            text += '\n';
        else if (escaped == '"' || escaped == '\\')
            text += escaped;
        else {
            why = QStringLiteral("unknown escape in the text of '%1' (\\\", \\\\ and \\n are known)")
                      .arg(QString::fromUtf8(entry.name));
            return false;
        }
    }
    for (++p; p < end; ++p)
        if (!blank(*p)) {
            why = QStringLiteral("only blanks may follow the text of '%1'").arg(QString::fromUtf8(entry.name));
            return false;
        }
    entry.text = QString::fromUtf8(text);
    // Bytes that are not UTF-8 come back as replacement characters, and so not as they were.
    if (entry.text.toUtf8() != text) {
        why = QStringLiteral("the text of '%1' is not UTF-8").arg(QString::fromUtf8(entry.name));
        return false;
    }
    return true;
}

}

QVector<Text_table::Entry> Text_table::read(const QByteArray& content, const QString& file, QStringList& problems)
{
    QVector<Entry> entries;
    QHash<QByteArray, int> first_line;
    const char* p = content.constData();
    const char* const end = p + content.size();
    if (content.startsWith("\xEF\xBB\xBF"))
        p += 3;
    for (int line = 1; p < end; ++line) {
        const char* line_end = p;
        while (line_end < end && *line_end != '\n')
            ++line_end;
        const char* next = line_end < end ? line_end + 1 : end;
        if (line_end > p && line_end[-1] == '\r')
            --line_end;
        while (p < line_end && blank(*p))
            ++p;
        if (p < line_end && *p != '#') {
            Entry entry;
            QString why;
            entry.line = line;
            if (!read_line(p, line_end, entry, why))
                problems.append(QStringLiteral("%1:%2: %3").arg(file).arg(line).arg(why));
            else if (first_line.contains(entry.name))
                problems.append(QStringLiteral("%1:%2: '%3' has a text at line %4 already")
                                    .arg(file)
                                    .arg(line)
                                    .arg(QString::fromUtf8(entry.name))
                                    .arg(first_line.value(entry.name)));
            else {
                first_line.insert(entry.name, line);
                entries.append(entry);
            }
        }
        p = next;
    }
    return entries;
}

QString Text_table::quoted(const QString& text)
{
    QString out = QStringLiteral("\"");
    for (QChar c : text) {
        if (c == '"' || c == '\\')
            out += '\\';
        if (c == '\n')
            out += QStringLiteral("\\n");
        else
            out += c;
    }
    return out + '"';
}

}
