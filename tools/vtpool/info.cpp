// vtpool info: what a pool is made of.
#include <iostream>

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
    std::cout.flush();
    return OK;
}

}

Command info_command()
{
    return {"info",
            "objects and bytes per type, the largest objects",
            {"POOL"},
            "Objects and bytes per type, and the largest objects.\n",
            {Invocation::language_option(), {{"verbose"}, "", "also show what the library said that is reported otherwise"}},
            run};
}

}
