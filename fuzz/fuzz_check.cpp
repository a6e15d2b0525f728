// The check: pool bytes (kept with ids used twice) or descriptions, chosen by the first byte
// as vtpool chooses, checked with every rule, with and without a terminal version, and
// reported as text and as JSON. Pool bytes that stop reading get the diagnosis of which
// object is at fault, and its answer must hold.
#include <QJsonDocument>
#include <QJsonObject>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <sstream>

#include "fuzz/fuzz_exit.h"
#include "fuzz/fuzz_support.h"
#include "tools/check/Checker.h"
#include "tools/check/Macro_commands.h"
#include "tools/check/Read_diagnosis.h"
#include "tools/check/Report.h"
#include "tools/check/Rules.h"
#include "tools/description/Description.h"
#include "tools/pool/Pool_file.h"

namespace {

const QString FILE_NAME = QStringLiteral(VT_EXAMPLES_DIR "/fuzz.xml");

bool build(const QByteArray& xml, VT::Object_pool& pool)
{
    auto d = std::make_shared<VT::Description>();
    pool.keep_alive(d);
    return d->parse(xml, FILE_NAME) && d->build(pool);
}

void check_findings(VT::Object_pool& pool, const VT::Check::Source& source)
{
    for (int version : {0, 3}) {
        VT::Check::Options options;
        options.vt_version = version;
        const VT::Check::Result r = VT::Check::check(pool, source, options);
        FUZZ_CHECK(r.objects == pool.size());
        for (const VT::Check::Finding& f : r.findings) {
            FUZZ_CHECK(VT::Check::find_rule(f.rule) != nullptr);
            FUZZ_CHECK(!f.message.isEmpty());
            FUZZ_CHECK(f.object_id < 0 || pool.find(uint16_t(f.object_id)) != nullptr);
        }
        std::ostringstream text;
        VT::Check::Report::text(r, options, text);
        const QJsonDocument doc = QJsonDocument::fromJson(VT::Check::Report::json(source.file, r, options));
        FUZZ_CHECK(doc.isObject());
        FUZZ_CHECK(doc.object().value("errors").toInt() == r.count(VT::Check::Severity::error));
    }
}

}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::quiet();
    if (size > (64u << 10))
        return 0;
    const QByteArray input = QByteArray::fromRawData(reinterpret_cast<const char*>(data), int(size));

    // Any bytes cut into macro commands: every command lies inside them, one after another.
    int end = 0;
    for (const VT::Check::Macro_command& m : VT::Check::Macro_commands::decode(input)) {
        FUZZ_CHECK(m.offset >= end && m.length >= 1 && m.offset + m.length <= int(size));
        end = m.offset + m.length;
    }

    VT::Object_pool pool;
    VT::Check::Source source;
    if (size > 0 && data[0] == '<') {
        const QByteArray xml(input.constData(), input.size());
        if (fuzz::ends_the_process([&]() {
                VT::Object_pool trial;
                build(xml, trial);
            }))
            return 0;
        // A description that does not build is reported by the description; what it built
        // is checked all the same.
        build(xml, pool);
        source.file = FILE_NAME;
    } else {
        QString error;
        VT::Pool_file::Read_report report;
        report.keep_duplicate_ids = true;
        // The input's length chooses the form of version 6 objects it is read in.
        pool.set_vt6_objects(size % 2 ? VT::Vt6_objects::iso : VT::Vt6_objects::legacy);
        if (!VT::Pool_file::read(input, pool, &error, &report)) {
            FUZZ_CHECK(!VT::Check::Read_diagnosis::reads_in_other_form(input, report) ||
                       VT::Check::Read_diagnosis::rest_reads(input, 0, true,
                                                             size % 2 ? VT::Vt6_objects::legacy : VT::Vt6_objects::iso));
            VT::Check::Suspect s;
            if (size <= (4u << 10) && VT::Check::Read_diagnosis::diagnose(input, report, &s)) {
                FUZZ_CHECK(s.index >= 0 && s.index <= report.offsets.size());
                FUZZ_CHECK(s.offset == (s.index < report.offsets.size() ? report.offsets[s.index] : report.stopped_at));
                FUZZ_CHECK(s.fitting_length != s.read_length);
                FUZZ_CHECK(VT::Check::Read_diagnosis::rest_reads(input, s.offset + s.fitting_length, true,
                                                                 report.vt6_objects));
            }
            return 0;
        }
        source.file = QStringLiteral("fuzz.iop");
        source.offsets = report.offsets;
    }
    check_findings(pool, source);
    return 0;
}
