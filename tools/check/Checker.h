#ifndef TOOLS_CHECK_CHECKER_H
#define TOOLS_CHECK_CHECKER_H

#include <QString>
#include <QVector>
#include <memory>

#include "tools/description/Translations.h"
#include "tools/pool/Object_pool.h"

// Checks a pool against what a terminal expects of it, without a terminal: every rule of
// Rules.cpp, each with an id, a severity and a one-line finding that names the object, the
// attribute, the value and where the object came from.
namespace VT {
namespace Check {

enum class Severity { error, warning };
const char* severity_name(Severity s);

// Where an object came from: a line of a description, or a byte offset in a pool file.
struct Location
{
    QString file;
    int line = 0;    // descriptions
    int offset = -1; // pool files
    // "pool.xml:12", "pool.iop, offset 664", or the file alone.
    QString text() const;
};

struct Finding
{
    QString rule;
    Severity severity = Severity::error;
    int object_id = -1; // -1: the pool as a whole
    QString object_name;
    QString object_type;
    QString attribute; // empty when the finding is about the object as a whole
    QString value;     // the offending value, as text
    Location location;
    QString message;
    QString hint; // what to do about it, when there is something to say

    // "'out' (Output_number 3)"; empty for the pool as a whole.
    QString object_label() const;
};

// What the checker is told about the pool besides its objects.
struct Source
{
    QString file;
    // Pool files: the byte offset of each object, in pool order. Empty for descriptions,
    // whose objects know their own line.
    QVector<int> offsets;
    // A description's languages and texts; null for pool files.
    std::shared_ptr<const Translations> translations;
};

struct Options
{
    int vt_version = 0;       // > 0: what a terminal of this version lacks is an error
    bool errors_only = false; // skip the rules that only warn (building)
    int max_findings = 0;     // > 0: stop recording findings after this many (when only counting)
};

// One reason the pool needs a VT version.
struct Need
{
    int version = 0;
    QString object;      // the object's label
    QString reason;      // all its reasons: "object type Graphics_context, holding ..."
    Location location;
};

struct Result
{
    QVector<Finding> findings; // errors first, then warnings; each group in pool order
    int objects = 0;
    int needed_version = 0;   // the lowest VT version the pool needs (0: no object of an ISO 11783-6 type)
    // What decides that version, one entry per object, in pool order; empty for version 2,
    // which every object would decide.
    QVector<Need> deciding;
    // The form of version 6 objects ("iso" or "legacy", Vt6_objects) of a pool that holds objects
    // of types 46 to 48; null for any other pool.
    const char* vt6_objects = nullptr;

    int count(Severity s) const;
};

Result check(Object_pool& pool, const Source& source, const Options& options = Options());

}
}

#endif
