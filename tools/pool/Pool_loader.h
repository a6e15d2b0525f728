#ifndef TOOLS_POOL_POOL_LOADER_H
#define TOOLS_POOL_POOL_LOADER_H

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <memory>

#include "tools/pool/Object_pool.h"
#include "tools/pool/Pool_file.h"

namespace VT {

class Translations;

// The languages of a description being loaded: the one to build, and the description's texts.
struct Language_choice
{
    QByteArray language; // empty: the default language
    std::shared_ptr<const Translations> translations; // set once a description is loaded
};

// Fills a pool from a file that is either a pool description (XML) or pool bytes.
class Pool_loader
{
public:
    // Chooses by content (or the .xml suffix). Problems and warnings are "file:line: text"
    // lines; false when the pool could not be built cleanly. A description stays alive as long
    // as the pool, whose objects keep its nodes. Pool bytes that stop reading name the object
    // probably at fault. With `verbose`, warnings also hold what the library said that the
    // tool reports in its own words. `report`, when given, receives how pool bytes were read
    // (and says whether ids used twice are kept). `lenient`: values of a description outside
    // their range are warnings (and clamped) rather than problems. `languages`, when given,
    // chooses the language a description is built in and receives its texts.
    static bool load(const QString& path, Object_pool& pool, QStringList& problems, QStringList& warnings,
                     bool verbose = false, bool* is_description = nullptr, Pool_file::Read_report* report = nullptr,
                     bool lenient = false, Language_choice* languages = nullptr);
    // Whether a file of this name that begins with `head` is read as a description.
    static bool looks_like_description(const QString& path, const QByteArray& head);
};

}

#endif
