#ifndef TOOLS_POOL_POOL_LOADER_H
#define TOOLS_POOL_POOL_LOADER_H

#include <QString>
#include <QStringList>

#include "tools/pool/Object_pool.h"

namespace VT {

// Fills a pool from a file that is either a pool description (XML) or pool bytes.
class Pool_loader
{
public:
    // Chooses by content (or the .xml suffix). Problems and warnings are "file:line: text"
    // lines; false when the pool could not be built cleanly. A description stays alive as long
    // as the pool, whose objects keep its nodes.
    static bool load(const QString& path, Object_pool& pool, QStringList& problems, QStringList& warnings,
                     bool verbose = false, bool* is_description = nullptr);
    // Whether a file of this name that begins with `head` is read as a description.
    static bool looks_like_description(const QString& path, const QByteArray& head);
};

}

#endif
