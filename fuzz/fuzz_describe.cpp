// Mutated pools described and built again: either the description gives the pool's bytes back,
// or describe refuses; never a crash, and never a description that builds another pool.
#include <QDir>
#include <QTemporaryDir>
#include <cstddef>
#include <cstdint>

#include "fuzz/fuzz_support.h"
#include "tools/describe/Describer.h"
#include "tools/pool/Pool_file.h"
#include "tools/pool/Pool_loader.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::quiet();
    if (size > (256u << 10))
        return 0;
    const QByteArray input(reinterpret_cast<const char*>(data), int(size));
    VT::Object_pool pool;
    QString error;
    // The input's length chooses the form of version 6 objects it is read in.
    pool.set_vt6_objects(size % 2 ? VT::Vt6_objects::iso : VT::Vt6_objects::legacy);
    if (!VT::Pool_file::read(input, pool, &error))
        return 0;
    // Asked for the file's bytes: a pool whose values were clamped while reading cannot give
    // them, and must be refused like anything else a description cannot carry.
    VT::Written_description text;
    QStringList problems, warnings;
    if (!VT::Describer::describe(pool, input, {{}, "fuzz.iop"}, text, problems, warnings)) {
        FUZZ_CHECK(!problems.isEmpty());
        return 0;
    }
    // What describe accepted builds, from its files as vtpool build reads them, into the bytes.
    QTemporaryDir dir;
    FUZZ_CHECK(dir.isValid());
    FUZZ_CHECK(VT::Describer::save(text, dir.path(), problems));
    VT::Object_pool again;
    FUZZ_CHECK(VT::Pool_loader::load(QDir(dir.path()).filePath("pool.xml"), again, problems, warnings));
    FUZZ_CHECK(VT::Pool_file::write(again) == input);
    return 0;
}
