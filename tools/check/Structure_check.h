#ifndef TOOLS_CHECK_STRUCTURE_CHECK_H
#define TOOLS_CHECK_STRUCTURE_CHECK_H

#include <QStringList>

#include "tools/pool/Object_pool.h"

namespace VT {

// The pool's structure: which objects may hold which, that references lead to objects, that
// ids are unique, and the VT version the pool's objects need.
class Structure_check
{
public:
    struct Check_result
    {
        QStringList problems;
        int needed_version = 0; // the lowest VT version the pool needs
        QStringList needing;    // the objects that need it, with the reason
    };
    // Containment rules, references, unique ids; with vt_version > 0 also what that version lacks.
    static Check_result check(Object_pool& pool, int vt_version);
    // The VT version that introduced an object type (0 for the system's own types).
    static int type_version(unsigned type);
};

}

#endif
