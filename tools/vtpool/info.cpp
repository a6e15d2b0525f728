// vtpool info: what a pool is made of.
#include <iostream>

#include "tools/check/Check_tool.h"
#include "tools/check/Report.h"
#include "tools/report/Report.h"
#include "tools/vtpool/Command.h"

namespace Vtpool {

namespace {

int run(Invocation& in)
{
    Object_pool pool;
    VT::Check::Loaded loaded;
    if (!in.load(pool, false, nullptr, &loaded))
        return PROBLEM;
    print_languages(loaded, in.value("language").toUtf8(), std::cout);
    VT::Report::info(pool, std::cout);
    // The lowest VT version the pool needs, and which objects and attributes decide it.
    VT::Check::Options options;
    options.errors_only = true;
    options.max_findings = 1;
    std::cout << "\n";
    VT::Check::Report::needed_version(VT::Check::check(pool, loaded.source, options), std::cout);
    std::cout.flush();
    return OK;
}

}

Command info_command()
{
    return {"info",
            "objects and bytes per type, the largest objects",
            {"POOL"},
            "Objects and bytes per type, the largest objects, and the lowest VT version the pool\n"
            "needs with the objects and attributes that decide it.\n",
            {Invocation::language_option(), {{"verbose"}, "", "also show what the library said that is reported otherwise"},
             Option::lenient(), Invocation::vt6_objects_option()},
            run};
}

}
