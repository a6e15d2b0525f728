// vtpool source: C++ source that compiles a pool in.
#include <QFileInfo>
#include <iostream>
#include <sstream>

#include "tools/source/Id_header.h"
#include "tools/source/Source_generator.h"
#include "tools/vtpool/Terminal_options.h"

namespace Vtpool {

namespace {

int run(Invocation& in)
{
    Target target;
    if (!Terminal_options::read(in, target))
        return USAGE;
    VT::Source_generator::Options options;
    options.header = in.value("header");
    options.name_space = in.value("namespace");
    if (!options.header.isEmpty() && options.name_space.isEmpty())
        options.name_space = QFileInfo(options.header).completeBaseName();
    // Pool files go through their description, which names every reference.
    Object_pool pool;
    if (!in.load_named(pool))
        return PROBLEM;
    // Named, the terminal gets the pool as vtpool build would give it.
    if (target.named && !Terminal_options::adapt(pool, target, true, false))
        return PROBLEM;
    std::ostringstream text;
    QString error;
    if (!VT::Source_generator::generate(pool, in.argument(), text, &error, options)) {
        std::cerr << "error: " << error.toStdString() << std::endl;
        return PROBLEM;
    }
    QByteArray header;
    if (!options.header.isEmpty() &&
        !VT::Id_header::write(pool, {true, options.name_space, options.header, in.argument(), true}, header, &error)) {
        std::cerr << "error: " << error.toStdString() << std::endl;
        return PROBLEM;
    }
    const std::string s = text.str();
    if (!Invocation::write_output(in.value("output"), QByteArray(s.data(), int(s.size()))) ||
        (!options.header.isEmpty() && !Invocation::write_output(options.header, header)))
        return PROBLEM;
    return OK;
}

}

Command source_command()
{
    return {"source",
            "generate C++ source that compiles the pool in",
            {"POOL"},
            "Writes C++ source that re-creates the pool: an Oids enumeration of the object ids,\n"
            "struct Pool_data with the arrays and struct Pool with the objects and the list\n"
            "Pool::objects. Object names must be C++ identifiers; a pool file's objects are\n"
            "named as vtpool describe names them. With --header the source is in a namespace\n"
            "(--namespace, default the header's name) and defines NAMESPACE::objects(), which\n"
            "the header declares beside the object ids. A terminal (--terminal, or its sizes\n"
            "with the sizes the pool was designed for) gets the pool as vtpool build makes it\n"
            "that terminal's own: scaled, its fonts fitted, its colours and pictures reduced.\n",
            QVector<Option>{Option::output("FILE.cpp", "where to write the source"),
                            {{"header"}, "FILE.h", "also write the ID header that declares objects()"},
                            {{"namespace"}, "NAME", "the namespace of the source and its header"},
                            Invocation::names_option(), Option::lenient(), Invocation::vt6_objects_option()} +
                Terminal_options::only({"design-size", "mask-size", "design-key-size", "key-size"}),
            run};
}

}
