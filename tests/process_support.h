#ifndef TESTS_PROCESS_SUPPORT_H
#define TESTS_PROCESS_SUPPORT_H

// Running a program from a test (vtpool, and the tools its output is meant for).
#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

namespace test {

struct Outcome
{
    int status = -1; // -1: it did not start, crashed or did not finish within a minute
    QString out;
    QString err;
};

// Runs `program` with `args`, `input` on its standard input.
inline Outcome run_program(const QString& program, const QStringList& args, const QByteArray& input = QByteArray())
{
    QProcess p;
    p.start(program, args);
    Outcome r;
    if (!p.waitForStarted(10000))
        return r;
    p.write(input);
    p.closeWriteChannel();
    if (!p.waitForFinished(60000))
        return r;
    r.status = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    r.out = QString::fromUtf8(p.readAllStandardOutput());
    r.err = QString::fromUtf8(p.readAllStandardError());
    return r;
}

inline Outcome vtpool(const QStringList& args)
{
    return run_program(QStringLiteral(VT_VTPOOL), args);
}

}

#endif
