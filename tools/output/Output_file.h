#ifndef TOOLS_OUTPUT_OUTPUT_FILE_H
#define TOOLS_OUTPUT_OUTPUT_FILE_H

#include <QByteArray>
#include <QString>
#include <cstddef>

namespace VT {

// A file that is written whole or not at all: the bytes go to a temporary file beside the
// target, which replaces the target only once every byte is written, synced and the file
// closed. On any failure (a full disk, a file-size limit, a missing folder, no permission)
// the target is left as it was and the temporary file is removed; error() names the path and
// the system's reason.
//
// A target that exists and is not a regular file (a terminal, a pipe, /dev/null) cannot be
// replaced: it is written directly, and every write is still checked.
//
// The writes are made with the system calls themselves: a buffered file layer may report a
// write cut short by a file-size limit as a success.
class Output_file
{
public:
    explicit Output_file(const QString& path);
    ~Output_file();
    Output_file(const Output_file&) = delete;
    Output_file& operator=(const Output_file&) = delete;

    bool open();
    // Appends bytes; after a failure further writes do nothing (commit() then fails).
    void write(const void* data, size_t size);
    void write(const QByteArray& bytes) { write(bytes.constData(), size_t(bytes.size())); }
    // Syncs, closes and renames into place; false on any failure so far.
    bool commit();
    // "cannot write 'PATH': reason", once something failed.
    const QString& error() const { return failure; }

    // The whole of `bytes` as the file `path`; false with the error in `error`.
    static bool write_file(const QString& path, const QByteArray& bytes, QString* error);

private:
    void fail(int system_error);
    void discard();

    QString target;    // the path as given
    QByteArray final_path, temporary_path;
    int fd = -1;
    bool direct = false;
    bool committed = false;
    QString failure;
};

}

#endif
