#ifndef TOOLS_DESCRIBE_OBJECT_NAMES_H
#define TOOLS_DESCRIBE_OBJECT_NAMES_H

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include "tools/pool/Object_pool.h"

namespace VT {

// The names objects carry in a description written from a pool: the names of an ID header
// where it gives one, else the object's own (a description's name, or "<Type>_<id>" for an
// object read from pool bytes).
class Object_names
{
public:
    typedef QHash<uint16_t, QByteArray> By_id;

    // Reads the names of an ID header: "#define NAME 12000" lines as designer tools write them
    // (decimal or 0x-hexadecimal, optionally in parentheses or with a U suffix), and
    // "constexpr ... NAME = 12000;" lines as `vtpool ids` writes them. Other lines are skipped.
    // Problems ("file:line: text") are names given twice for one id.
    static By_id parse_header(const QByteArray& text, const QString& file, QStringList& warnings);
    static bool read_header(const QString& path, By_id& names, QStringList& problems, QStringList& warnings);

    // A name for every object of the pool, unique and usable in a description: `given` first,
    // then the object's own name, then "<Type>_<id>" (with a suffix if even that is taken).
    // Each name that could not be kept is a warning.
    static By_id choose(const Object_pool& pool, const By_id& given, QStringList& warnings);

    // Whether `name` can name an object in a description: 1 to 32 characters, not read as a
    // number or a symbol (so that it can stand for an id), no control characters.
    static bool usable(const QByteArray& name);
    // Whether it can also be a C++ name in generated source.
    static bool is_identifier(const QByteArray& name);
};

}

#endif
