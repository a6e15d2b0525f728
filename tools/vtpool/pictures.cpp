// vtpool pictures: the pictures of a pool as PNG files.
#include <QDir>
#include <iostream>

#include "tools/pictures/Pictures.h"
#include "tools/vtpool/Command.h"

namespace Vtpool {

namespace {

int run(Invocation& in)
{
    Object_pool pool;
    if (!in.load(pool))
        return PROBLEM;
    QString dir = in.value("output");
    if (!QDir().mkpath(dir)) {
        std::cerr << "error: cannot create '" << dir.toStdString() << "'" << std::endl;
        return PROBLEM;
    }
    QStringList problems, warnings;
    QStringList written = VT::Pictures::write_all(pool, dir, problems, &warnings);
    for (const QString& w : written)
        std::cout << w.toStdString() << "\n";
    print_lines(warnings, "warning: ");
    print_lines(problems, "error: ");
    std::cout << written.size() << " pictures written" << std::endl;
    return problems.isEmpty() ? OK : PROBLEM;
}

}

Command pictures_command()
{
    return {"pictures",
            "write the pool's pictures as PNG files",
            {"POOL"},
            "Writes every picture graphic and PNG object as DIR/<name>.png.\n",
            {Option::output("DIR", "the folder to write into, created if missing"), {{"verbose"}, "", "also show what the library said that is reported otherwise"}, Option::lenient(), Invocation::vt6_objects_option()},
            run};
}

}
