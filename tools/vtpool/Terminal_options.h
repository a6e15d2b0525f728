#ifndef TOOLS_VTPOOL_TERMINAL_OPTIONS_H
#define TOOLS_VTPOOL_TERMINAL_OPTIONS_H

#include "tools/terminal/Scaling.h"
#include "tools/terminal/Terminal.h"
#include "tools/vtpool/Command.h"

namespace Vtpool {

// What the terminal options of a command name: the terminal and the screen the pool was
// designed for.
struct Target
{
    VT::Terminal terminal;
    VT::Design_size design;
    bool named = false; // whether any terminal option was given
};

// The options that describe the terminal a pool is meant for, declared once for every command
// that targets one: --terminal FILE, one option per terminal property (tools/terminal/
// Terminal_properties.h) overriding the file, and the sizes the pool was designed for.
class Terminal_options
{
public:
    // The whole group, or --terminal and those of its options named (without dashes).
    static QVector<Option> all();
    static QVector<Option> only(const QStringList& names);

    // Reads those options of the group that the command declares into `target`; false after
    // the usage error has been printed.
    static bool read(const Invocation& in, Target& target);

    // Makes the pool the target terminal's own (VT::Terminal_adaptation): scaled from the
    // screen it was designed for where sizes of both were given, objects read from pool bytes
    // first learning the area they are drawn in. Prints the problems and the warnings `in` has
    // not printed yet (a pool made the terminal's once per language warns once); false, after
    // saying that nothing is written, when the pool cannot be made the terminal's.
    static bool adapt(const Invocation& in, Object_pool& pool, const Target& target, bool is_description,
                      bool downgrade);
};

}

#endif
