// vtpool check: containment rules, references, ids and the VT version a pool needs.
#include <iostream>

#include "tools/check/Structure_check.h"
#include "tools/vtpool/Terminal_options.h"

namespace Vtpool {

namespace {

int run(Invocation& in)
{
    Target target;
    if (!Terminal_options::read(in, target))
        return USAGE;
    Object_pool pool;
    if (!in.load(pool))
        return PROBLEM;
    VT::Structure_check::Check_result r = VT::Structure_check::check(pool, target.terminal.vt_version);
    for (const QString& p : r.problems)
        std::cout << "problem: " << p.toStdString() << "\n";
    std::cout << pool.size() << " objects, " << r.problems.size() << " problems\n";
    if (r.needed_version) {
        std::cout << "needs VT version " << r.needed_version << ", because of:\n";
        const int shown = 20;
        for (int i = 0; i < r.needing.size() && i < shown; ++i)
            std::cout << "  " << r.needing[i].toStdString() << "\n";
        if (r.needing.size() > shown)
            std::cout << "  ... and " << r.needing.size() - shown << " more objects\n";
    }
    std::cout.flush();
    return r.problems.isEmpty() ? OK : PROBLEM;
}

}

Command check_command()
{
    return {"check",
            "check containment rules, references and ids; report the VT version needed",
            {"POOL"},
            "Checks every parent/child pair against the containment rules, every reference,\n"
            "and that ids are unique; reports the lowest VT version the pool needs and the\n"
            "objects that need it. With --vt-version, also what that version lacks.\n",
            Terminal_options::only({"vt-version"}) + QVector<Option>{Option::lenient()},
            run};
}

}
