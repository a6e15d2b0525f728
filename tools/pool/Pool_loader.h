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
    // as the pool, whose objects keep its nodes. `lenient`: values of a description outside
    // their range are warnings (and clamped) rather than problems.
    static bool load(const QString& path, Object_pool& pool, QStringList& problems, QStringList& warnings,
                     bool verbose = false, bool* is_description = nullptr, bool lenient = false);
};

}

#endif
