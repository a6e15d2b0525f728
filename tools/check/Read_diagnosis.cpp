#include "tools/check/Read_diagnosis.h"

#include <algorithm>
#include <cstdlib>

#include "tools/Object_factory.h"

namespace VT {
namespace Check {

namespace {

const int LOOK_BACK = 256; // objects before the stop that are suspected
const int LARGEST_CHANGE = 64;

// Whether an object header could start at `at`: a type this reader knows, and an id that is
// neither NULL nor one of the objects before.
bool plausible_header(const QByteArray& bytes, int at, const QSet<uint16_t>& ids_before)
{
    if (at < 0 || at + 3 > bytes.size())
        return false;
    const uint16_t id = uint16_t(uchar(bytes[at]) | uchar(bytes[at + 1]) << 8);
    unsigned type = uchar(bytes[at + 2]);
    if (type == VT_obj_type::TYPE_CONFIG && at + 3 < bytes.size())
        type += 256u * uchar(bytes[at + 3]);
    return id != VT_obj::NULL_ID && !ids_before.contains(id) && Object_factory::find_for_pool(type);
}

}

QString Suspect::text() const
{
    return QStringLiteral("%1 %2 at offset %3 is probably %4 bytes long, not %5 (after its 3-byte header): with that "
                          "length the rest of the pool reads")
        .arg(QString::fromLatin1(VT_obj_type::get_type_string(VT_obj_type::type_t(type))))
        .arg(id)
        .arg(offset)
        .arg(fitting_length)
        .arg(read_length);
}

bool Read_diagnosis::rest_reads(const QByteArray& bytes, int offset, bool keep_duplicate_ids)
{
    if (offset == bytes.size())
        return true;
    if (offset < 0 || offset > bytes.size())
        return false;
    // Read in place: the reader never writes to its input.
    const QByteArray rest = QByteArray::fromRawData(bytes.constData() + offset, bytes.size() - offset);
    Object_pool scratch;
    Pool_file::Read_report report;
    report.keep_duplicate_ids = keep_duplicate_ids;
    return Pool_file::read(rest, scratch, nullptr, &report);
}

QVector<int> Read_diagnosis::fitting_lengths(const QByteArray& bytes, int offset, int min, int max, int near,
                                             const QSet<uint16_t>& ids_before, bool keep_duplicate_ids)
{
    QVector<int> lengths;
    for (int l = std::max(min, 0); l <= max; ++l)
        lengths.append(l);
    std::stable_sort(lengths.begin(), lengths.end(), [near](int a, int b) { return std::abs(a - near) < std::abs(b - near); });
    QVector<int> out;
    for (int l : lengths) {
        const int end = offset + 3 + l;
        if ((end == bytes.size() || plausible_header(bytes, end, ids_before)) && rest_reads(bytes, end, keep_duplicate_ids))
            out.append(l);
    }
    return out;
}

bool Read_diagnosis::diagnose(const QByteArray& bytes, const Pool_file::Read_report& report, Suspect* out)
{
    const QVector<int>& starts = report.offsets;
    if (report.stopped_at < 0 || starts.isEmpty())
        return false;
    // The ids of the objects before each suspect, and their positions.
    QSet<uint16_t> ids;
    const int first = std::max(0, starts.size() - LOOK_BACK);
    auto id_at = [&](int at) { return uint16_t(uchar(bytes[at]) | uchar(bytes[at + 1]) << 8); };
    for (int k = 0; k < first; ++k)
        ids.insert(id_at(starts[k]));
    for (int k = first; k < starts.size(); ++k) {
        const int start = starts[k];
        const int end = k + 1 < starts.size() ? starts[k + 1] : report.stopped_at;
        const int read = end - start - 3;
        ids.insert(id_at(start));
        // The other lengths alone: the length as read is what failed.
        QVector<int> fits = fitting_lengths(bytes, start, read - LARGEST_CHANGE, read + LARGEST_CHANGE, read, ids,
                                            report.keep_duplicate_ids);
        fits.removeAll(read);
        if (fits.isEmpty())
            continue;
        unsigned type = uchar(bytes[start + 2]);
        if (type == VT_obj_type::TYPE_CONFIG)
            type += 256u * uchar(bytes[start + 3]);
        if (out)
            *out = Suspect{k, id_at(start), type, start, read, fits.first()};
        return true;
    }
    return false;
}

}
}
