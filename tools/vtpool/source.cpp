// vtpool source: C++ source that compiles a pool in.
#include <iostream>
#include <sstream>

#include "tools/output/Output_file.h"
#include "tools/source/Source_generator.h"
#include "tools/vtpool/Command.h"

namespace Vtpool {

namespace {

int run(Invocation& in)
{
    Object_pool pool;
    VT::Check::Loaded loaded;
    if (!in.load(pool, false, nullptr, &loaded) || !VT::Check::may_build(loaded, pool, 0, false, std::cerr))
        return PROBLEM;
    std::ostringstream text;
    QString error;
    if (!VT::Source_generator::generate(pool, in.argument(), text, &error)) {
        std::cerr << "error: " << error.toStdString() << std::endl;
        return PROBLEM;
    }
    const std::string s = text.str();
    if (!VT::Output_file::write_file(in.value("output"), QByteArray::fromStdString(s), &error)) {
        std::cerr << "error: " << error.toStdString() << std::endl;
        return PROBLEM;
    }
    return OK;
}

}

Command source_command()
{
    return {"source",
            "generate C++ source that compiles the pool in",
            {"DESCRIPTION"},
            "Writes C++ source that re-creates the pool: an Oids enumeration of the object ids,\n"
            "struct Pool_data with the arrays and struct Pool with the objects and the list\n"
            "Pool::objects. Object names must be C++ identifiers.\n",
            {Option::output("FILE.cpp", "where to write the source"), Option::lenient()},
            run};
}

}
