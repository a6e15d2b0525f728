// vtpool ids: a header naming the id of every object, for application code.
#include <iostream>

#include "tools/source/Id_header.h"
#include "tools/vtpool/Command.h"

namespace Vtpool {

namespace {

int run(Invocation& in)
{
    if (in.is_set("namespace") && !in.is_set("constexpr"))
        return in.usage_error("--namespace goes with --constexpr");
    Object_pool pool;
    if (!in.load_named(pool))
        return PROBLEM;
    QByteArray header;
    QString error;
    const VT::Id_header::Options options{in.is_set("constexpr"), in.value("namespace"), in.value("output"),
                                         in.argument(), false};
    if (!VT::Id_header::write(pool, options, header, &error)) {
        std::cerr << "error: " << error.toStdString() << std::endl;
        return PROBLEM;
    }
    return Invocation::write_output(in.value("output"), header) ? OK : PROBLEM;
}

}

Command ids_command()
{
    return {"ids",
            "write a header with the id of every object",
            {"POOL"},
            "Writes a C/C++ header with one '#define NAME ID' per object (or, with --constexpr,\n"
            "'constexpr uint16_t NAME = ID;' in an optional namespace). A pool file's objects are\n"
            "named as vtpool describe names them; vtpool describe --names reads the header back.\n",
            {Option::output("IDS.h", "where to write the header"),
             {{"constexpr"}, "", "constexpr constants instead of #define lines"},
             {{"namespace"}, "NAME", "the namespace of the constants (with --constexpr)"},
             Invocation::names_option(), Invocation::vt6_objects_option()},
            run};
}

}
