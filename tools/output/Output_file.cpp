#include "tools/output/Output_file.h"

#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace VT {

Output_file::Output_file(const QString& path) : target(path) {}

Output_file::~Output_file()
{
    discard();
}

void Output_file::fail(int system_error)
{
    if (failure.isEmpty())
        failure = QStringLiteral("cannot write '%1': %2").arg(target, QString::fromLocal8Bit(strerror(system_error)));
}

void Output_file::discard()
{
    if (fd >= 0)
        ::close(fd);
    fd = -1;
    if (!temporary_path.isEmpty() && !committed)
        ::unlink(temporary_path.constData());
    temporary_path.clear();
}

bool Output_file::open()
{
    // A link is followed, so that the file it leads to is replaced and the link stays.
    const QFileInfo info(target);
    final_path = QFile::encodeName(info.exists() ? info.canonicalFilePath() : target);
    struct stat existing;
    const bool exists = ::stat(final_path.constData(), &existing) == 0;
    if (exists && !S_ISREG(existing.st_mode)) {
        if (S_ISDIR(existing.st_mode)) {
            fail(EISDIR);
            return false;
        }
        direct = true;
        do
            fd = ::open(final_path.constData(), O_WRONLY | O_TRUNC | O_CLOEXEC);
        while (fd < 0 && errno == EINTR);
        if (fd < 0)
            fail(errno);
        return fd >= 0;
    }
    const QFileInfo final_info(QFile::decodeName(final_path));
    temporary_path = QFile::encodeName(final_info.absolutePath() + "/." + final_info.fileName() + ".XXXXXX");
    fd = ::mkstemp(temporary_path.data());
    if (fd < 0) {
        fail(errno);
        temporary_path.clear();
        return false;
    }
    // The new file gets the permissions the target has, or those a new file gets.
    mode_t mode = 0;
    if (exists) {
        mode = existing.st_mode & 07777;
    } else {
        const mode_t mask = ::umask(0);
        ::umask(mask);
        mode = 0666 & ~mask;
    }
    if (::fchmod(fd, mode) != 0) {
        fail(errno);
        discard();
        return false;
    }
    return true;
}

void Output_file::write(const void* data, size_t size)
{
    if (fd < 0 || !failure.isEmpty())
        return;
    const char* p = static_cast<const char*>(data);
    while (size > 0) {
        const ssize_t n = ::write(fd, p, size);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0) {
            fail(n < 0 ? errno : EIO);
            return;
        }
        p += n;
        size -= size_t(n);
    }
}

bool Output_file::commit()
{
    if (fd < 0 && failure.isEmpty())
        fail(EBADF);
    if (!failure.isEmpty()) {
        discard();
        return false;
    }
    // Devices and pipes cannot be synced; only their close is checked.
    if (!direct && ::fsync(fd) != 0)
        fail(errno);
    if (::close(fd) != 0 && failure.isEmpty())
        fail(errno);
    fd = -1;
    if (failure.isEmpty() && !direct && ::rename(temporary_path.constData(), final_path.constData()) != 0)
        fail(errno);
    if (!failure.isEmpty()) {
        discard();
        return false;
    }
    committed = true;
    return true;
}

bool Output_file::write_file(const QString& path, const QByteArray& bytes, QString* error)
{
    Output_file out(path);
    if (out.open()) {
        out.write(bytes);
        if (out.commit())
            return true;
    }
    if (error)
        *error = out.error();
    return false;
}

}
