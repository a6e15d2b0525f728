#ifndef TESTS_TOOL_TEST_SUPPORT_H
#define TESTS_TOOL_TEST_SUPPORT_H

// What the tests of the host tools share besides running vtpool (process_support.h): the files
// it reads and writes, and the real pools of ../shared/pools.

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>

#include "process_support.h"

namespace test {

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
