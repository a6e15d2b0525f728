#ifndef TOOLS_CHECK_READ_DIAGNOSIS_H
#define TOOLS_CHECK_READ_DIAGNOSIS_H

#include <QByteArray>
#include <QSet>
#include <QString>
#include <QVector>

#include "tools/Pool_file.h"

// When pool bytes stop reading, the object at fault is often well before the point where
// they stop: an object longer or shorter than its layout sends the reader into the next
// object's bytes, which may read as something else for a while. This finds the object whose
// length is probably wrong, and the length with which the rest of the pool reads.
namespace VT {
namespace Check {

struct Suspect
{
    int index = -1;      // in pool order
    uint16_t id = 0;
    unsigned type = 0;   // full type
    int offset = 0;      // where the object starts
    int read_length = 0; // its bytes after the 3-byte header, as read
    int fitting_length = 0; // ... with which everything after it reads to the end

    // "Graphics_context 36000 at offset 664 is probably 38 bytes long, not 34 (...)"
    QString text() const;
};

class Read_diagnosis
{
public:
    // Looks at the objects read before reading stopped (report.offsets, report.stopped_at), in
    // pool order, and gives the first that another length would make the rest of the pool read
    // to the end. The 256 objects before the stop are looked at, each with lengths up to 64
    // bytes shorter or longer; false when none fits.
    static bool diagnose(const QByteArray& bytes, const Pool_file::Read_report& report, Suspect* out);

    // The lengths from `min` to `max` (bytes after the header) that an object starting at
    // `offset` could have so that everything after it reads to the end, nearest to `near`
    // first. `ids_before` are the ids of the objects before it: an object after it with one of
    // those ids is taken as a sign of a wrong length. Objects read from the bytes keep their
    // ids duplicated when `keep_duplicate_ids`.
    static QVector<int> fitting_lengths(const QByteArray& bytes, int offset, int min, int max, int near,
                                        const QSet<uint16_t>& ids_before, bool keep_duplicate_ids = false);

    // Whether the bytes from `offset` on read to the end as objects.
    static bool rest_reads(const QByteArray& bytes, int offset, bool keep_duplicate_ids = false);
};

}
}

#endif
