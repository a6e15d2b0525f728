#ifndef TESTS_VTPOOL_SUPPORT_H
#define TESTS_VTPOOL_SUPPORT_H

// Running the vtpool program from tests, and the files it reads and writes.

#include <QByteArray>
#include <QFile>
#include <QProcess>
#include <QString>
#include <QStringList>

namespace test {

struct Outcome
{
    int status = -1;
    QString out;
    QString err;
};

inline Outcome vtpool(const QStringList& args)
{
    QProcess p;
    p.start(QStringLiteral(VT_VTPOOL), args);
    Outcome r;
    if (!p.waitForFinished(60000))
        return r;
    r.status = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    r.out = QString::fromUtf8(p.readAllStandardOutput());
    r.err = QString::fromUtf8(p.readAllStandardError());
    return r;
}

inline QByteArray read_file(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

inline bool write_file(const QString& path, const QByteArray& content)
{
    QFile f(path);
    return f.open(QIODevice::WriteOnly) && f.write(content) == content.size();
}

}

#endif
