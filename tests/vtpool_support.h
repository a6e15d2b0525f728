#ifndef TESTS_VTPOOL_SUPPORT_H
#define TESTS_VTPOOL_SUPPORT_H

// Running vtpool as a program, and small file helpers, for the tests of its commands.

#include <QFile>
#include <QString>
#include <QStringList>

#include "process_support.h"

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

inline QByteArray file_bytes(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

inline bool put_file(const QString& path, const QByteArray& content)
{
    QFile f(path);
    return f.open(QIODevice::WriteOnly) && f.write(content) == content.size();
}

}

#endif
