// vtpool dump: every object of a pool, printed.
#include <iostream>

#include "tools/report/Report.h"
#include "tools/vtpool/Command.h"

namespace Vtpool {

namespace {

int run(Invocation& in)
{
    Object_pool pool;
    // What could be read is printed even when the rest could not.
    VT::Check::Loaded loaded;
    bool ok = in.load(pool, false, nullptr, &loaded);
    print_languages(loaded, in.value("language").toUtf8(), std::cout);
    VT::Report::dump(pool, std::cout, in.is_set("bytes"));
    return ok ? OK : PROBLEM;
}

}

Command dump_command()
{
    return {"dump",
            "print every object of a pool",
            {"POOL"},
            "Prints every object with its attributes (of objects sharing an id, all of them).\n",
            {{{"bytes"}, "", "add each object's bytes"}, Invocation::language_option(),
             {{"verbose"}, "", "also show what the library said that is reported otherwise"}, Option::lenient(), Invocation::vt6_objects_option()},
            run};
}

}
