#ifndef TOOLS_DESCRIPTION_TEXT_TABLE_H
#define TOOLS_DESCRIPTION_TEXT_TABLE_H

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

namespace VT {

// The texts of one language for a description, kept apart from it so that translators never
// edit the pool: a UTF-8 file of lines
//
//     # comment
//     object_name = "text, with \" \\ and \n (a line break) escaped"
//
// Blank lines and lines starting with '#' are skipped (format: docs/description-format.md).
class Text_table
{
public:
    struct Entry
    {
        QByteArray name; // the object's name, UTF-8
        QString text;
        int line = 0;
    };

    // Reads `content`; each problem is added to `problems` as "file:line: text". The entries of
    // the lines that read are returned even when others did not (each name once, at its first
    // line).
    static QVector<Entry> read(const QByteArray& content, const QString& file, QStringList& problems);

    // A text as a table line writes it: quoted, with the escapes above.
    static QString quoted(const QString& text);
};

}

#endif
