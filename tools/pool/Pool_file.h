#ifndef TOOLS_POOL_POOL_FILE_H
#define TOOLS_POOL_POOL_FILE_H

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>
#include <functional>

#include "tools/pool/Object_pool.h"

namespace VT {

// ISO 11783-6 object pool bytes: a run of objects, each its id (2 bytes, little-endian), its
// type byte and its attributes.
class Pool_file
{
public:
    struct Read_report
    {
        // Set by the caller: keep an object whose id an earlier object uses (the pool holds
        // both, see Object_pool::add_duplicate) instead of stopping there.
        bool keep_duplicate_ids = false;
        // Set by the reader: the form of version 6 objects the bytes were read in (the pool's).
        Vt6_objects vt6_objects = Vt6_objects::legacy;

        int objects = 0;
        QVector<int> offsets; // where each object starts in the input
        // Objects one of whose values lay outside its range and was clamped while reading,
        // each "object ... at byte offset N: " and what was clamped, as far as the library said.
        QStringList clamped;
        QVector<int> clamped_objects; // the index of the object of each line of `clamped`
        // Objects kept although their id was taken: (index, index of the earlier object).
        QVector<QPair<int, int>> duplicate_ids;
        // The offset at which reading stopped on a bad object; -1 when everything was read.
        int stopped_at = -1;
        // What the library said while reading that the error or `clamped` already tell in
        // other words ("Deser:" reasons), each line naming the object.
        QStringList library_notes;
    };

    // Reads every object of `bytes` into `pool` (objects are named "<Type>_<id>"), types 46 to 48
    // in the form the pool says (Object_pool::vt6_objects). Stops at the
    // first bad object with a one-line error naming its index, id, type and byte offset. The
    // bytes are only read, so they may lie in read-only memory (QByteArray::fromRawData).
    // What the library prints while reading is caught and lands in the report.
    // Objects whose bytes can be checked without building them (Plain_layout) and read whole
    // without clamping are built when the pool is first looked at (Object_pool::set_defer_building),
    // from a copy of their bytes; everything above holds for them all the same.
    static bool read(const QByteArray& bytes, Object_pool& pool, QString* error, Read_report* report = nullptr);
    static bool read_file(const QString& path, Object_pool& pool, QString* error, Read_report* report = nullptr);

    // Every object serialised for the pool's limits, in pool order, in one buffer.
    static QByteArray write(Object_pool& pool);
    // The same bytes, handed to `sink` in chunks of `chunk` bytes (the last may be shorter), as an
    // upload over a transport would send them.
    static void write_chunks(Object_pool& pool, int chunk, const std::function<void(const uint8_t*, int)>& sink);
    static QByteArray write_streamed(Object_pool& pool, int chunk);
    // The bytes of one object as write() produces them.
    static QByteArray object_bytes(VT_obj& obj);

    // The name given to an object read from pool bytes.
    static QByteArray default_name(unsigned full_type, uint16_t id);
};

}

#endif
