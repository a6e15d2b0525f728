#ifndef TESTS_VTPOOL_SUPPORT_H
#define TESTS_VTPOOL_SUPPORT_H

// Running vtpool as a program, and small file helpers, for the tests of its commands.

#include <QFile>
#include <QProcess>
#include <QString>
#include <QStringList>

namespace test {

struct Outcome
{
    int status = -1; // -1: did not finish, or ended by a signal
    QString out;
    QString err;
};

// vtpool with `args`; with `shell_setup`, through sh -c "SETUP; exec vtpool ARGS" (for limits
// such as ulimit -f).
inline Outcome run_vtpool(const QStringList& args, const QString& shell_setup = QString())
{
    QProcess p;
    if (shell_setup.isEmpty()) {
        p.start(QStringLiteral(VT_VTPOOL), args);
    } else {
        // The arguments reach the shell as its positional parameters, unquoted by nobody.
        p.start(QStringLiteral("/bin/sh"), QStringList{"-c", shell_setup + QStringLiteral("; exec \"$0\" \"$@\""),
                                                      QStringLiteral(VT_VTPOOL)} + args);
    }
    Outcome r;
    if (!p.waitForFinished(120000))
        return r;
    r.status = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    r.out = QString::fromUtf8(p.readAllStandardOutput());
    r.err = QString::fromUtf8(p.readAllStandardError());
    return r;
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
