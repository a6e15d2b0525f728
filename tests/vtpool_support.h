#ifndef TESTS_VTPOOL_SUPPORT_H
#define TESTS_VTPOOL_SUPPORT_H

// Running vtpool as a program under a shell limit, for the tests of its commands.

#include <QString>
#include <QStringList>

#include "tool_test_support.h"

namespace test {

// vtpool with `args`; with `shell_setup`, through sh -c "SETUP; exec vtpool ARGS" (for limits
// such as ulimit -f).
inline Outcome run_vtpool(const QStringList& args, const QString& shell_setup = QString())
{
    if (shell_setup.isEmpty())
        return vtpool(args);
    // The arguments reach the shell as its positional parameters, unquoted by nobody.
    return run_program(QStringLiteral("/bin/sh"), QStringList{"-c", shell_setup + QStringLiteral("; exec \"$0\" \"$@\""),
                                                               QStringLiteral(VT_VTPOOL)} + args);
}

}

#endif
