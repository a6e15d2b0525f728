// vtpool version (also vtpool --version): the version of vtpool and of the vt_core it is built on.
#include <iostream>

#include "tools/vtpool/Command.h"
#include "vt_core_version.h"

namespace Vtpool {

namespace {

int run(Invocation&)
{
    std::cout << "vtpool " VT_CORE_VERSION << std::endl;
    return OK;
}

}

Command version_command()
{
    return {"version",
            "print vtpool's version",
            {},
            "Prints the version of vtpool, which is the version of the vt_core library it is built\n"
            "with. vtpool --version does the same.\n",
            {},
            run};
}

}
