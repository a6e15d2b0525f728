#ifndef TOOLS_CHECK_CHECK_TOOL_H
#define TOOLS_CHECK_CHECK_TOOL_H

#include <QPair>
#include <QStringList>
#include <ostream>

#include "tools/check/Checker.h"

// What the commands of vtpool do with the checker: load a pool so that it can be inspected
// even when it breaks a rule, check it, and decide whether it may be built.
namespace VT {
namespace Check {

struct Loaded
{
    bool ok = false;
    bool is_description = false;
    Source source;
    // Objects whose id an earlier object uses: (index, index of the earlier one).
    QVector<QPair<int, int>> duplicates;
    QStringList problems;
    QStringList warnings;
};

// Loads a description or pool file. Objects of pool files whose id is taken stay in the pool
// (see Object_pool::add_duplicate) so that they can be shown and checked.
// `lenient`: values of a description outside their range are warnings (and clamped). A
// description is built in `language` (empty: its default language).
Loaded load(const QString& path, Object_pool& pool, bool verbose, bool lenient = false,
            const QByteArray& language = QByteArray());

struct Check_request
{
    QString path;
    Options options;
    bool json = false;
    bool werror = false; // warnings make the exit status 1 too
    bool verbose = false;
    QByteArray language; // a description's language to check in; empty: its default
    bool lenient = false;
    Vt6_objects vt6_objects = Vt6_objects::legacy; // how a pool file lays out types 46 to 48
};
// The check command: loads, checks and reports on `out`; returns the exit status (0 clean,
// 1 errors, or warnings with werror; a pool that does not load counts as an error).
int run_check(const Check_request& request, std::ostream& out);

// Before a build: a pool with an id used twice is never built; otherwise, unless `rules` is
// false, the error rules run (with the terminal's VT version). Prints what stands in the way
// on `err`; true when the pool may be built.
bool may_build(const Loaded& loaded, Object_pool& pool, int vt_version, bool rules, std::ostream& err);

}
}

#endif
