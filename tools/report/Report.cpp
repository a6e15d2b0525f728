#include "tools/report/Report.h"

#include <QMap>
#include <QPair>
#include <QVector>
#include <algorithm>
#include <iomanip>

#include "tools/pool/Labels.h"
#include "tools/pool/Pool_file.h"

namespace VT {

void Report::dump(Object_pool& pool, std::ostream& os, bool bytes)
{
    Debug::Text_dumper dumper(os);
    for (VT_obj* obj : pool.objects()) {
        obj->print_me(os, 0);
        if (bytes)
            obj->serialise(dumper, true);
    }
    os.flush();
}

void Report::info(Object_pool& pool, std::ostream& os, int largest)
{
    struct Per_type
    {
        int count = 0;
        qint64 bytes = 0;
    };
    QMap<unsigned, Per_type> types;
    QVector<QPair<int, VT_obj*>> sizes;
    qint64 total = 0;
    for (VT_obj* obj : pool.objects()) {
        int n = Pool_file::object_bytes(*obj).size();
        Per_type& t = types[obj->get_type()];
        ++t.count;
        t.bytes += n;
        total += n;
        sizes.append({n, obj});
    }
    os << pool.size() << " objects, " << total << " bytes\n\n";
    os << std::left << std::setw(36) << "type" << std::right << std::setw(8) << "objects" << std::setw(10) << "bytes"
       << "\n";
    for (auto it = types.constBegin(); it != types.constEnd(); ++it)
        os << std::left << std::setw(36)
           << QStringLiteral("%1 (%2)").arg(type_name(it.key())).arg(it.key() & 0xFF).toStdString() << std::right
           << std::setw(8) << it->count << std::setw(10) << it->bytes << "\n";
    std::stable_sort(sizes.begin(), sizes.end(),
                     [](const QPair<int, VT_obj*>& a, const QPair<int, VT_obj*>& b) { return a.first > b.first; });
    os << "\nlargest objects:\n";
    for (int i = 0; i < sizes.size() && i < largest; ++i)
        os << std::setw(10) << sizes[i].first << "  " << object_label(sizes[i].second).toStdString() << "\n";
}

}
