// Whole pool files: read into objects, then written back whole and in transport-sized chunks.
#include <cstddef>
#include <cstdint>

#include "fuzz/fuzz_support.h"
#include "tools/pool/Pool_file.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::quiet();
    if (size > (1u << 20))
        return 0;
    // Types 46 to 48 are read in each form of version 6 objects.
    for (VT::Vt6_objects form : {VT::Vt6_objects::legacy, VT::Vt6_objects::iso}) {
        VT::Object_pool pool;
        pool.set_vt6_objects(form);
        QString error;
        VT::Pool_file::Read_report report;
        // Read straight from libFuzzer's bytes, which it checks are left as they were.
        const QByteArray input = QByteArray::fromRawData(reinterpret_cast<const char*>(data), int(size));
        const bool ok = VT::Pool_file::read(input, pool, &error, &report);
        FUZZ_CHECK(ok == error.isEmpty());
        // Objects left to be built later come out as those built while reading.
        VT::Object_pool at_once;
        at_once.set_vt6_objects(form);
        at_once.set_defer_building(false);
        QString error_at_once;
        VT::Pool_file::Read_report report_at_once;
        FUZZ_CHECK(VT::Pool_file::read(input, at_once, &error_at_once, &report_at_once) == ok);
        FUZZ_CHECK(error_at_once == error && report_at_once.offsets == report.offsets &&
                   report_at_once.clamped == report.clamped && report_at_once.library_notes == report.library_notes);
        if (!ok)
            continue;
        FUZZ_CHECK(report.objects == pool.size());

        // The same bytes whether written in one buffer or in chunks, for the full terminal and for
        // a 16-colour one with fewer fonts.
        QByteArray once = VT::Pool_file::write(pool);
        FUZZ_CHECK(VT::Pool_file::write(at_once) == once);
        FUZZ_CHECK(VT::Pool_file::write_streamed(pool, 7) == once);
        VT::Serialisation_limits small;
        small.colour_format = VT::FOUR_BIT_COLOUR;
        small.small_font_mask = 0x15;
        small.large_font_mask = 0x02;
        small.font_style_mask = 0x03;
        pool.set_serialisation_limits(small);
        QByteArray reduced = VT::Pool_file::write(pool);
        FUZZ_CHECK(VT::Pool_file::write_streamed(pool, 1785) == reduced);

        // What was written reads back.
        VT::Object_pool again;
        again.set_vt6_objects(form);
        FUZZ_CHECK(VT::Pool_file::read(once, again, &error));
        FUZZ_CHECK(again.size() == pool.size());
    }
    return 0;
}
