#include "tools/check/Read_diagnosis.h"

#include <QHash>
#include <algorithm>
#include <cstdlib>
#include <memory>

#include "tools/pool/Object_factory.h"
#include "tools/check/Checker.h"

namespace VT {
namespace Check {

namespace {

const int LOOK_BACK = 64; // objects before the stop that are suspected
const int LARGEST_CHANGE = 64;

// The full type of the object whose header starts at `at` (configuration objects carry
// their kind in the byte after the type).
unsigned full_type_at(const QByteArray& bytes, int at)
{
    unsigned type = uchar(bytes[at + 2]);
    if (type == VT_obj_type::TYPE_CONFIG && at + 3 < bytes.size())
        type += 256u * uchar(bytes[at + 3]);
    return type;
}

// Whether an object header could start at `at`: a type this reader knows, and an id that is
// neither NULL nor one of the objects before.
bool plausible_header(const QByteArray& bytes, int at, const QSet<uint16_t>& ids_before, Vt6_objects form)
{
    if (at < 0 || at + 3 > bytes.size())
        return false;
    const uint16_t id = uint16_t(uchar(bytes[at]) | uchar(bytes[at + 1]) << 8);
    return id != VT_obj::NULL_ID && !ids_before.contains(id) &&
           Object_factory::find_for_pool(full_type_at(bytes, at), form);
}

// The fewest bytes an object of the type takes: its layout with every list empty.
int shortest(unsigned full_type, Vt6_objects form)
{
    static QHash<unsigned, int> known;
    const unsigned key = full_type | unsigned(form) << 16;
    auto it = known.constFind(key);
    if (it != known.constEnd())
        return *it;
    const Object_factory::Entry* entry = Object_factory::find_for_pool(full_type, form);
    std::unique_ptr<VT_obj> obj(entry ? entry->make(nullptr) : nullptr);
    const int n = obj ? std::max(obj->num_bytes(), 3) : 3;
    known.insert(key, n);
    return n;
}

// Reads the bytes from `offset` to the end into `into`; false when they do not all read.
bool read_rest(const QByteArray& bytes, int offset, bool keep_duplicate_ids, Vt6_objects form, Object_pool& into)
{
    into.set_vt6_objects(form);
    if (offset == bytes.size())
        return true;
    if (offset < 0 || offset > bytes.size())
        return false;
    // Read in place: the reader never writes to its input.
    const QByteArray rest = QByteArray::fromRawData(bytes.constData() + offset, bytes.size() - offset);
    Pool_file::Read_report report;
    report.keep_duplicate_ids = keep_duplicate_ids;
    return Pool_file::read(rest, into, nullptr, &report);
}

}

QString Suspect::text() const
{
    return QStringLiteral("%1 %2 at offset %3 is probably %4 bytes long%5: with that length the rest of the pool reads")
        .arg(QString::fromLatin1(Object_factory::type_name(type)))
        .arg(id)
        .arg(offset)
        .arg(fitting_length)
        .arg(read_length < 0 ? QString() : QStringLiteral(", not %1").arg(read_length));
}

bool Read_diagnosis::rest_reads(const QByteArray& bytes, int offset, bool keep_duplicate_ids, Vt6_objects form)
{
    Object_pool scratch;
    return read_rest(bytes, offset, keep_duplicate_ids, form, scratch);
}

bool Read_diagnosis::reads_in_other_form(const QByteArray& bytes, const Pool_file::Read_report& report, Vt6_objects* other)
{
    const Vt6_objects form = report.vt6_objects == Vt6_objects::iso ? Vt6_objects::legacy : Vt6_objects::iso;
    // Only the types the forms lay out differently make the difference.
    bool any = false;
    QVector<int> starts = report.offsets;
    if (report.stopped_at >= 0 && report.stopped_at + 3 <= bytes.size())
        starts.append(report.stopped_at);
    for (int at : starts)
        any = any || (full_type_at(bytes, at) >= VT_obj_type::TYPE_PNG && full_type_at(bytes, at) <= VT_obj_type::TYPE_SCALED_GRAPHIC);
    if (!any || !rest_reads(bytes, 0, report.keep_duplicate_ids, form))
        return false;
    if (other)
        *other = form;
    return true;
}

// Whether the rest reads from each offset, asked once per offset: the lengths tried for one
// object and the next end at many of the same places.
class Read_diagnosis::Rest
{
public:
    Rest(const QByteArray& bytes, bool keep_duplicate_ids, Vt6_objects form)
        : bytes(bytes), keep(keep_duplicate_ids), form(form)
    {
    }
    bool reads_from(int offset)
    {
        auto it = known.constFind(offset);
        if (it != known.constEnd())
            return *it;
        scratch.clear();
        const bool r = read_rest(bytes, offset, keep, form, scratch);
        known.insert(offset, r);
        return r;
    }
    QVector<int> fitting(int offset, int min, int max, const QSet<uint16_t>& ids_before)
    {
        QVector<int> out;
        for (int l = std::max(min, 3); l <= max; ++l) {
            const int end = offset + l;
            if (end < bytes.size() && plausible_header(bytes, end, ids_before, form) && reads_from(end))
                out.append(l);
        }
        return out;
    }

private:
    const QByteArray& bytes;
    const bool keep;
    const Vt6_objects form;
    Object_pool scratch;
    QHash<int, bool> known;
};

QVector<int> Read_diagnosis::fitting_lengths(const QByteArray& bytes, int offset, int min, int max,
                                             const QSet<uint16_t>& ids_before, bool keep_duplicate_ids,
                                             Vt6_objects form)
{
    return Rest(bytes, keep_duplicate_ids, form).fitting(offset, min, max, ids_before);
}

bool Read_diagnosis::diagnose(const QByteArray& bytes, const Pool_file::Read_report& report, Suspect* out)
{
    // The objects that read, and the one where reading stopped (when it has a whole header):
    // each object's start, and the length it was read with (-1: it did not read).
    QVector<int> starts = report.offsets;
    if (report.stopped_at < 0 || starts.isEmpty() || report.stopped_at > bytes.size())
        return false;
    const bool stopped_on_header = report.stopped_at + 3 <= bytes.size();
    if (stopped_on_header)
        starts.append(report.stopped_at);
    auto id_at = [&](int at) { return uint16_t(uchar(bytes[at]) | uchar(bytes[at + 1]) << 8); };
    auto as_read = [&](int k) { return k < report.offsets.size() ? (k + 1 < starts.size() ? starts[k + 1] : report.stopped_at) - starts[k] : -1; };

    // A length is worse for each finding of the check on the pool it makes, each object read
    // before that it swallows, and being shorter than the type's layout allows at all.
    struct Candidate
    {
        int object, length, doubts, swallowed;
    };
    bool found = false;
    Candidate best{};
    auto change = [&](const Candidate& c) { return std::abs(c.length - as_read(c.object)); };
    auto better = [&](const Candidate& a, const Candidate& b) {
        if (a.doubts != b.doubts)
            return a.doubts < b.doubts;
        if (a.object != b.object)
            return a.object < b.object;
        return change(a) < change(b);
    };
    const Vt6_objects form = report.vt6_objects;
    Rest rest(bytes, report.keep_duplicate_ids, form);
    QSet<uint16_t> before; // ids of the objects up to the suspect
    const int first = std::max(0, starts.size() - LOOK_BACK);
    for (int k = 0; k < first; ++k)
        before.insert(id_at(starts[k]));
    for (int k = first; k < starts.size(); ++k) {
        const int start = starts[k];
        const int read = as_read(k);
        before.insert(id_at(start));
        // Lengths near the one read, and short ones: a count misread from the wrong bytes
        // makes the length read anything, and most objects are short.
        QVector<int> lengths = rest.fitting(start, 3, 2 * LARGEST_CHANGE, before);
        if (read > LARGEST_CHANGE)
            for (int l : rest.fitting(start, std::max(read - LARGEST_CHANGE, 2 * LARGEST_CHANGE + 1), read + LARGEST_CHANGE, before))
                lengths.append(l);
        for (int length : lengths) {
            if (length == read)
                continue; // the length as read is what failed
            // The pool if the object had that length: the objects before it, it (when it read),
            // and what follows.
            Object_pool pool;
            read_rest(bytes.left(start + std::max(read, 0)), 0, true, form, pool);
            read_rest(bytes, start + length, true, form, pool);
            int swallowed = 0;
            for (int j = k + 1; j < starts.size() && starts[j] < start + length; ++j)
                ++swallowed;
            // Beyond a few dozen findings a pool is wrong all the same.
            Options counting;
            counting.max_findings = 64;
            const int doubts = check(pool, Source(), counting).findings.size() + swallowed +
                               (length < shortest(full_type_at(bytes, start), form) ? 1 : 0);
            const Candidate c{k, length, doubts, swallowed};
            if (!found || better(c, best)) {
                best = c;
                found = true;
            }
        }
    }
    if (!found)
        return false;
    if (out) {
        const int start = starts[best.object];
        *out = Suspect{best.object, id_at(start), full_type_at(bytes, start), start, as_read(best.object), best.length};
    }
    return true;
}

}
}
