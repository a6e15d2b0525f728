#include "tools/pool/Partial_pool.h"

#include <QHash>
#include <QVector>

#include "tools/pool/Object_pool.h"
#include "tools/pool/Pool_file.h"

namespace VT {

namespace {

using Object_bytes = Partial_pool::Object_bytes;

// Where each id stands among the objects.
QHash<uint16_t, int> positions(const QVector<Object_bytes>& objects)
{
    QHash<uint16_t, int> at;
    for (int i = 0; i < objects.size(); ++i)
        at.insert(objects[i].id, i);
    return at;
}

}

bool Partial_pool::split(const QByteArray& bytes, const char* which, QVector<Object_bytes>& out, QString* error)
{
    if (bytes.isEmpty()) // a partial pool may hold no object
        return true;
    Object_pool pool;
    Pool_file::Read_report report;
    QString why;
    // Only the objects' bounds matter here: a pool that does not read with the default form of
    // types 46 and 47 (or holds type 48) is read in the ISO form.
    bool whole = Pool_file::read(bytes, pool, &why, &report);
    if (!whole) {
        pool.clear();
        pool.set_vt6_objects(Vt6_objects::iso);
        report = Pool_file::Read_report();
        QString ignored;
        whole = Pool_file::read(bytes, pool, &ignored, &report);
    }
    if (!whole) {
        if (error)
            *error = QStringLiteral("the %1 pool does not read: %2").arg(which, why);
        return false;
    }
    for (int i = 0; i < report.offsets.size(); ++i) {
        const int start = report.offsets[i];
        const int end = i + 1 < report.offsets.size() ? report.offsets[i + 1] : bytes.size();
        out.append({pool.objects()[i]->get_id(), bytes.mid(start, end - start)});
    }
    return true;
}

bool Partial_pool::differing(const QByteArray& base, const QByteArray& changed, QByteArray& out, QString* error,
                             int* count)
{
    QVector<Object_bytes> before, after;
    if (!split(base, "base", before, error) || !split(changed, "changed", after, error))
        return false;
    const QHash<uint16_t, int> at = positions(before);
    out.clear();
    int n = 0;
    for (const Object_bytes& o : after) {
        const int i = at.value(o.id, -1);
        if (i < 0 || before[i].bytes != o.bytes) {
            out += o.bytes;
            ++n;
        }
    }
    if (count)
        *count = n;
    return true;
}

bool Partial_pool::apply(const QByteArray& base, const QByteArray& partial, QByteArray& out, QString* error)
{
    QVector<Object_bytes> objects, replacing;
    if (!split(base, "base", objects, error) || !split(partial, "partial", replacing, error))
        return false;
    QHash<uint16_t, int> at = positions(objects);
    for (const Object_bytes& o : replacing) {
        const int i = at.value(o.id, -1);
        if (i < 0) {
            at.insert(o.id, objects.size());
            objects.append(o);
        } else {
            objects[i].bytes = o.bytes;
        }
    }
    out.clear();
    for (const Object_bytes& o : objects)
        out += o.bytes;
    return true;
}

}
