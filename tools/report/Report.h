#ifndef TOOLS_REPORT_REPORT_H
#define TOOLS_REPORT_REPORT_H

#include <ostream>

#include "tools/pool/Object_pool.h"

namespace VT {

// A pool printed for people.
class Report
{
public:
    // Every object with its attributes; with `bytes` also each object's bytes.
    static void dump(Object_pool& pool, std::ostream& os, bool bytes);
    // Objects and bytes per type, and the `largest` largest objects.
    static void info(Object_pool& pool, std::ostream& os, int largest = 10);
};

}

#endif
