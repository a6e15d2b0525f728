#ifndef TOOLS_DESCRIBE_DESCRIPTION_WRITER_H
#define TOOLS_DESCRIBE_DESCRIPTION_WRITER_H

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

#include "tools/describe/Object_names.h"
#include "tools/pool/Object_pool.h"

namespace VT {

// A description written from a pool: its XML text and the files beside it that it names.
struct Written_description
{
    struct File
    {
        QString path; // relative to the description
        QByteArray bytes;
    };
    QByteArray xml;
    QVector<File> files;
};

// Writes the description of a pool (format: docs/description-format.md) from which the
// description reader builds the same objects: every object at the top level in pool order with
// its id, values in their natural form (colours by name where the palette has one, references
// by name, bit fields in hexadecimal with a comment naming the bits), and attributes that
// keep their default left out. Pictures become PNG files where the file gives the same
// picture bytes back, and stay hexadecimal bytes where it would not.
class Description_writer
{
public:
    struct Options
    {
        Object_names::By_id names; // a name for every object, by id (Object_names::choose)
        QString origin;            // what the description was written from, for its opening comment
        QString pictures = QStringLiteral("pictures"); // folder of the picture files
    };

    // False when a value of the pool cannot be carried by a description; `problems` then name
    // each object and attribute concerned.
    static bool write(Object_pool& pool, const Options& options, Written_description& out, QStringList& problems);
};

}

#endif
