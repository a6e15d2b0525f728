#ifndef TESTS_TOOL_TEST_SUPPORT_H
#define TESTS_TOOL_TEST_SUPPORT_H

// What the tests of the host tools share: the vtpool program run as a user runs it, the files
// it reads and writes, and the real pools of ../shared/pools.

#include <QByteArray>
#include <QDir>
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

// The real pools (*.iop) of VT_SHARED_POOLS_DIR, by name; none when the folder is absent.
inline QStringList real_pools()
{
    QDir dir(QStringLiteral(VT_SHARED_POOLS_DIR));
    QStringList out;
    for (const QString& f : dir.entryList({"*.iop"}, QDir::Files, QDir::Name))
        out.append(dir.filePath(f));
    return out;
}

}

#endif
