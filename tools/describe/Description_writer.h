#ifndef TOOLS_DESCRIBE_DESCRIPTION_WRITER_H
#define TOOLS_DESCRIBE_DESCRIPTION_WRITER_H

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSet>
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

// The texts of a pool in further languages, as describe writes them: one text table per
// language (tools/describe/Language_pools.h reads them from the pools of those languages).
struct Described_languages
{
    QList<QByteArray> codes; // the default first
    struct Text
    {
        uint16_t id;
        QString text;
    };
    QHash<QByteArray, QVector<Text>> texts; // by language, in pool order
    QSet<uint16_t> growing;                 // objects with a translation longer than their default text
    QHash<QByteArray, QByteArray> pools;    // by language: the whole pool a build in it must give
};

// Writes the description of a pool (format: docs/description-format.md) from which the
// description reader builds the same objects: every object at the top level in pool order with
// its id, values in their natural form (colours by name where the palette has one, references
// by name, bit fields in hexadecimal with a comment naming the bits), and attributes that
// keep their default left out. Pictures become PNG files where the file gives the same
// picture bytes back, and stay hexadecimal bytes where it would not. Texts in further
// languages become a text table per language.
class Description_writer
{
public:
    struct Options
    {
        Object_names::By_id names; // a name for every object, by id (Object_names::choose)
        QString origin;            // what the description was written from, for its opening comment
        QString pictures = QStringLiteral("pictures"); // folder of the picture files
        // Texts in further languages: declared on <object_pool>, written as tables into the
        // folder `texts`; null: one language.
        const Described_languages* languages = nullptr;
        QString texts = QStringLiteral("texts");
    };

    // False when a value of the pool cannot be carried by a description; `problems` then name
    // each object and attribute concerned.
    static bool write(Object_pool& pool, const Options& options, Written_description& out, QStringList& problems);
};

}

#endif
