// vtpool info: what a pool is made of.
#include <iostream>

#include "tools/report/Report.h"
#include "tools/vtpool/Command.h"

namespace Vtpool {

namespace {

int run(Invocation& in)
{
    Object_pool pool;
    if (!in.load(pool))
        return PROBLEM;
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
            {Option::lenient()},
            run};
}

}
