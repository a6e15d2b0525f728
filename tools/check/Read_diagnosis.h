#ifndef TOOLS_CHECK_READ_DIAGNOSIS_H
#define TOOLS_CHECK_READ_DIAGNOSIS_H

#include <QByteArray>
#include <QSet>
#include <QString>
#include <QVector>

#include "tools/pool/Pool_file.h"

// When pool bytes stop reading, the object at fault is often well before the point where
// they stop: an object longer or shorter than its layout sends the reader into the next
// object's bytes, which may read as something else for a while. This finds the object whose
// length is probably wrong, and the length with which the rest of the pool reads; or that the
// pool holds the other form of the object types VT version 6 added.
namespace VT {
namespace Check {

struct Suspect
{
    int index = -1;      // in pool order (the object where reading stopped: the number read)
    uint16_t id = 0;
    unsigned type = 0;   // full type
    int offset = 0;      // where the object starts
    int read_length = 0;    // its length in bytes (header included), as read; -1: it did not read
    int fitting_length = 0; // ... with which everything after it reads to the end

    // "Graphics_context 36000 at offset 664 is probably 38 bytes long, not 34: ..."
    QString text() const;
};

class Read_diagnosis
{
public:
    // Looks at the objects read before reading stopped (report.offsets, report.stopped_at):
    // the 64 objects before the stop and the object where reading stopped, each with the
    // lengths up to 128 bytes and those up to 64 bytes shorter or longer than it was read.
    // Of the lengths with which the rest of the pool reads to the end (at least one object of
    // it), it takes the one with the fewest doubts: each finding of the check on the pool that
    // length makes (bytes misread as objects break rules, and an object swallowed whole is
    // missed by those that refer to it), each object read before that it swallows, and a
    // length shorter than the type's layout with every list empty. Then the fewest objects
    // swallowed, the earliest object, the smallest change. False when no length fits.
    static bool diagnose(const QByteArray& bytes, const Pool_file::Read_report& report, Suspect* out);

    // The lengths from `min` to `max` (header included) that an object starting at `offset`
    // could have so that everything after it reads to the end as at least one object. An
    // object after it with one of `ids_before` (the ids of the objects before it) rules a
    // length out. Objects after it keep ids used twice when `keep_duplicate_ids`. To try
    // another layout of the object's type, ask for that layout's length alone.
    static QVector<int> fitting_lengths(const QByteArray& bytes, int offset, int min, int max,
                                        const QSet<uint16_t>& ids_before, bool keep_duplicate_ids = false,
                                        Vt6_objects form = Vt6_objects::legacy);

    // Whether the bytes from `offset` on read to the end as objects of a pool of the form.
    static bool rest_reads(const QByteArray& bytes, int offset, bool keep_duplicate_ids = false,
                           Vt6_objects form = Vt6_objects::legacy);

    // Whether bytes that stopped reading (as `report` says), among whose objects are some of
    // types 46 to 48, read whole in the other form of version 6 objects; `other` receives it.
    static bool reads_in_other_form(const QByteArray& bytes, const Pool_file::Read_report& report,
                                    Vt6_objects* other = nullptr);

private:
    class Rest;
};

}
}

#endif
