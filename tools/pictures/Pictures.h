#ifndef TOOLS_PICTURES_PICTURES_H
#define TOOLS_PICTURES_PICTURES_H

#include <QString>
#include <QStringList>

#include "tools/pool/Object_pool.h"

namespace VT {

// The pictures of a pool as image files.
class Pictures
{
public:
    // Writes every picture graphic and PNG object of the pool as DIR/<name>.png (a second
    // object of the same name, as objects sharing an id have, as <name>_2.png); returns the
    // files written, and lists those that could not be written in `problems`. What the library
    // says while decoding a picture (data that overruns it) goes to `warnings`, naming it.
    static QStringList write_all(Object_pool& pool, const QString& dir, QStringList& problems,
                                 QStringList* warnings = nullptr);
};

}

#endif
