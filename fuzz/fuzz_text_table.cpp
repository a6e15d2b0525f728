// Text tables of a description's languages: any bytes read line by line into entries or
// problems, and every text read written back quoted reads as it was.
#include <QSet>
#include <cstddef>
#include <cstdint>

#include "fuzz/fuzz_support.h"
#include "tools/description/Text_table.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::quiet();
    if (size > (64u << 10))
        return 0;
    QStringList problems;
    const QByteArray content(reinterpret_cast<const char*>(data), int(size));
    const QVector<VT::Text_table::Entry> entries = VT::Text_table::read(content, QStringLiteral("de.txt"), problems);
    QSet<QByteArray> names;
    int last_line = 0;
    for (const VT::Text_table::Entry& e : entries) {
        FUZZ_CHECK(!e.name.isEmpty() && !names.contains(e.name));
        FUZZ_CHECK(e.line > last_line);
        names.insert(e.name);
        last_line = e.line;
        QStringList again_problems;
        const auto again = VT::Text_table::read("x = " + VT::Text_table::quoted(e.text).toUtf8(),
                                                QStringLiteral("q.txt"), again_problems);
        FUZZ_CHECK(again_problems.isEmpty() && again.size() == 1 && again[0].text == e.text);
    }
    for (const QString& p : problems)
        FUZZ_CHECK(p.startsWith(QStringLiteral("de.txt:")));
    return 0;
}
