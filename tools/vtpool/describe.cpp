// vtpool describe: a pool written as a description (and its pictures) that builds the same bytes.
#include <QDir>
#include <QFile>
#include <iostream>

#include "tools/describe/Describer.h"
#include "tools/pool/Pool_file.h"
#include "tools/vtpool/Command.h"

namespace Vtpool {

namespace {

int run(Invocation& in)
{
    VT::Object_names::By_id names;
    QStringList problems, warnings;
    if (in.is_set("names") && !VT::Object_names::read_header(in.value("names"), names, problems, warnings)) {
        print_lines(problems, "error: ");
        return PROBLEM;
    }
    Object_pool pool;
    bool is_description = false;
    if (!in.load(pool, false, &is_description))
        return PROBLEM;
    // A description is described as it builds; a pool file must come back as the file is.
    QByteArray expected = VT::Pool_file::write(pool);
    if (!is_description) {
        QFile f(in.argument());
        const QByteArray file = f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
        if (file != expected) {
            const QString why = VT::Describer::first_difference(pool, file);
            if (!in.is_set("accept-changes")) {
                std::cerr << "error: " << in.argument().toStdString() << ": the pool as read differs from the file ("
                          << why.toStdString() << "); --accept-changes describes it as read" << std::endl;
                return PROBLEM;
            }
            warnings.append(QStringLiteral("%1: described as read, which differs from the file (%2)")
                                .arg(in.argument(), why));
        }
    }
    VT::Written_description text;
    const bool ok = VT::Describer::describe(pool, expected, {names, in.argument()}, text, problems, warnings);
    print_lines(warnings, "warning: ");
    if (!ok || !VT::Describer::save(text, in.value("output"), problems)) {
        print_lines(problems, "error: ");
        return PROBLEM;
    }
    std::cout << "wrote " << QDir(in.value("output")).filePath("pool.xml").toStdString() << " (" << pool.size()
              << " objects) and " << text.files.size() << " pictures" << std::endl;
    return OK;
}

}

Command describe_command()
{
    return {"describe",
            "write a pool as a description that builds the same bytes",
            {"POOL"},
            "Writes DIR/pool.xml, a description of POOL (a pool file or a description), and its\n"
            "pictures as DIR/pictures/*.png, such that vtpool build DIR/pool.xml gives POOL's\n"
            "bytes again: same ids, order and data. The description is built and compared before\n"
            "it is written; a pool it could not give back is refused, naming the objects.\n"
            "Objects are named <Type>_<id>, or as an ID header names them (--names).\n",
            {Option::output("DIR", "the folder to write into, created if missing"),
             Invocation::names_option(),
             {{"accept-changes"}, "", "describe a pool whose values the reader had to clamp, as read"},
             Invocation::vt6_objects_option()},
            run};
}

}
