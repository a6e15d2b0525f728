// vtpool: builds, inspects and checks ISO 11783-6 object pools from pool descriptions (XML)
// or pool files. Exit status: 0 fine, 1 a problem was found, 2 bad usage.
//
// Each command is one file of this folder that returns its Command; the table below lists
// them, and help texts, parsing and the checks of the command line all come from it.
#include <QCoreApplication>
#include <csignal>
#include <iostream>

#include "tools/vtpool/Command.h"
#include "tools/vtpool/Help_formats.h"

namespace Vtpool {

Command build_command();
Command dump_command();
Command source_command();
Command check_command();
Command pictures_command();
Command info_command();
Command render_command();
Command describe_command();
Command ids_command();
Command types_command();
Command attributes_command();
Command version_command();

const std::vector<Command>& commands()
{
    static const std::vector<Command> table{
        build_command(), dump_command(), source_command(), check_command(), pictures_command(), render_command(), info_command(),
        describe_command(), ids_command(), types_command(), attributes_command(), version_command(),
    };
    return table;
}

namespace {

// vtpool help [COMMAND], and the forms of the help the build installs (not listed: they are for
// the build, not for people).
int help(const QStringList& args)
{
    if (args.isEmpty()) {
        std::cout << general_help().toStdString();
        return OK;
    }
    if (args == QStringList("--man")) {
        std::cout << Help_formats::man_page().toStdString();
        return OK;
    }
    if (args == QStringList("--bash-completion")) {
        std::cout << Help_formats::bash_completion().toStdString();
        return OK;
    }
    for (const Command& command : commands())
        if (args == QStringList(command.name)) {
            std::cout << command_help(command).toStdString();
            return OK;
        }
    std::cerr << "vtpool help: give one command, as in: vtpool help build\n\n" << general_help().toStdString();
    return USAGE;
}

int run(const QStringList& arguments)
{
    QStringList args = arguments;
    if (args.isEmpty()) {
        std::cerr << general_help().toStdString();
        return USAGE;
    }
    QString name = args.takeFirst();
    if (name == "--help" || name == "-h" || name == "help")
        return help(args);
    if (name == "--version")
        name = "version";
    for (const Command& command : commands()) {
        if (name != command.name)
            continue;
        if (args.contains("--help") || args.contains("-h")) {
            std::cout << command_help(command).toStdString();
            return OK;
        }
        Invocation in(command, args);
        return in.read() ? command.run(in) : USAGE;
    }
    std::cerr << "vtpool: unknown command '" << name.toStdString() << "'\n\n" << general_help().toStdString();
    return USAGE;
}

}

}

int main(int argc, char** argv)
{
    // A file-size limit then fails the write that crosses it (reported, the output discarded)
    // instead of ending the program with the output half written.
    signal(SIGXFSZ, SIG_IGN);
    QCoreApplication app(argc, argv);
    QStringList args;
    for (int i = 1; i < argc; ++i)
        args.append(QString::fromLocal8Bit(argv[i]));
    return Vtpool::run(args);
}
