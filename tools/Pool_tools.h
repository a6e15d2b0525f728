#ifndef TOOLS_POOL_TOOLS_H
#define TOOLS_POOL_TOOLS_H

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>
#include <ostream>

#include "tools/Object_pool.h"
#include "tools/Pool_file.h"

namespace VT {

// One reference from an object to another, found by walking the object's attributes.
struct Object_reference
{
    enum Kind { CHILD, REFERENCE, MACRO };
    Kind kind;
    QByteArray attribute; // name of the attribute (the list, for list items)
    int attribute_index;  // its index in the object's byte order
    uint16_t id;          // 65535: the NULL reference
};

// Whole-pool operations of the host: loading, checking, scaling, reporting, source generation.
class Pool_tools
{
public:
    // Loads a description (XML) or pool bytes, chosen by content. Problems and warnings are
    // "file:line: text" lines; false when the pool could not be built cleanly. Pool bytes that
    // stop reading name the object probably at fault. With `verbose`, warnings also hold what
    // the library said that the tool reports in its own words. `report`, when given, receives
    // how pool bytes were read (and says whether duplicate ids are kept).
    static bool load(const QString& path, Object_pool& pool, QStringList& problems, QStringList& warnings,
                     bool verbose = false, bool* is_description = nullptr, Pool_file::Read_report* report = nullptr);

    static QVector<Object_reference> references(VT_obj& obj);
    // "'name' (Type id)"
    static QString label(VT_obj* obj);

    struct Check_result
    {
        QStringList problems;
        int needed_version = 0;   // the lowest VT version the pool needs
        QStringList needing;      // the objects that need it, with the reason
    };
    // Containment rules, references, unique ids; with vt_version > 0 also what that version lacks.
    static Check_result check(Object_pool& pool, int vt_version);
    // The VT version that introduced an object type (0 for the system's own types).
    static int type_version(unsigned type);

    // Gives objects read from pool bytes the area they are drawn in, from the masks down.
    static void propagate_areas(Object_pool& pool);

    struct Ratio
    {
        bool active = false;
        uint16_t num_x = 1, num_y = 1, den_x = 1, den_y = 1;
    };
    // Scales each object by the ratio of the area it is used in: the soft-key ratio for soft-key
    // masks, keys and what they hold, the data-mask ratio for everything else.
    static void scale(Object_pool& pool, const Ratio& mask, const Ratio& key);

    // Source text that re-creates the pool as compiled-in objects; false (and `error`) when the
    // names cannot be C++ identifiers.
    static bool generate_source(Object_pool& pool, const QString& origin, std::ostream& os, QString* error);

    static void info(Object_pool& pool, std::ostream& os, int largest = 10);
};

}

#endif
