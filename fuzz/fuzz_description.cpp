// Pool descriptions: XML text parsed and built into a pool, which is then written out.
// Relative picture files resolve against examples/, so the example descriptions work as starting inputs.
// Descriptions that the library ends the process for are left alone (fuzz_exit.h).
#include <cstddef>
#include <cstdint>
#include <memory>

#include "fuzz/fuzz_exit.h"
#include "fuzz/fuzz_support.h"
#include "tools/description/Description.h"
#include "tools/pool/Pool_file.h"

namespace {

bool parse(const uint8_t* data, size_t size, VT::Description& d)
{
    return d.parse(QByteArray(reinterpret_cast<const char*>(data), int(size)),
                   QStringLiteral(VT_EXAMPLES_DIR "/fuzz.xml"));
}

}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::quiet();
    if (size > (256u << 10))
        return 0;
    VT::Object_pool pool;
    auto d = std::make_shared<VT::Description>();
    pool.keep_alive(d);
    const bool parsed = parse(data, size, *d);
    FUZZ_CHECK(parsed || !d->problems().isEmpty());
    if (!parsed || fuzz::ends_the_process([&]() {
            VT::Object_pool trial;
            auto t = std::make_shared<VT::Description>();
            trial.keep_alive(t);
            if (parse(data, size, *t))
                t->build(trial);
        }))
        return 0;
    const bool built = d->build(pool);
    FUZZ_CHECK(built || !d->problems().isEmpty());
    QByteArray once = VT::Pool_file::write(pool);
    FUZZ_CHECK(VT::Pool_file::write_streamed(pool, 13) == once);
    return 0;
}
