#ifndef TOOLS_DESCRIBE_DESCRIBER_H
#define TOOLS_DESCRIBE_DESCRIBER_H

#include <QByteArray>
#include <QString>
#include <QStringList>

#include "tools/describe/Description_writer.h"

namespace VT {

// From a pool to a description that builds the pool's bytes again: written, then built and
// compared before anyone sees it. A pool whose bytes a description cannot give back is
// refused with the objects and attributes that stand in the way, never described approximately.
class Describer
{
public:
    struct Options
    {
        Object_names::By_id names; // names to give objects by id (an ID header); others keep theirs
        QString origin;            // the file described, for messages and the opening comment
        // Texts in further languages (Language_pools); the description written must then give
        // each language's pool as well.
        const Described_languages* languages = nullptr;
    };

    // Describes `pool`, whose bytes must come back as `expected`. On success `out` holds the
    // checked description; `built`, when given, receives the pool built from it (its objects
    // then carry the description's names, references included).
    static bool describe(Object_pool& pool, const QByteArray& expected, const Options& options,
                         Written_description& out, QStringList& problems, QStringList& warnings,
                         Object_pool* built = nullptr);

    // Loads a description or pool file as describe names its objects: a description as it is,
    // a pool file through its description, so that references carry names. `lenient`: values
    // of a description outside their range are warnings (and clamped) rather than problems.
    static bool load_named(const QString& path, const Object_names::By_id& names, Object_pool& pool,
                           QStringList& problems, QStringList& warnings, bool lenient = false);

    // Whether the description in `folder` built in each language but the default gives that
    // language's pool; a problem naming the language and the object otherwise.
    static bool builds_languages(const Described_languages& languages, const QString& folder, QStringList& problems);

    // Where the bytes of `pool` first part from `expected`: the object and attribute.
    static QString first_difference(Object_pool& pool, const QByteArray& expected);

    // Writes the description's files into `folder` (created if missing), each first to a
    // temporary file beside its place and renamed into place once whole; the description
    // itself last, once every picture it names is there.
    static bool save(const Written_description& text, const QString& folder, QStringList& problems);

    // Why building an object from a description would end the process (the library stops on a
    // rectangle or line without line attributes, a key with key code 0, an animation with a
    // NULL child); empty when it would not.
    static QString fatal_when_built(VT_obj& obj);
};

}

#endif
