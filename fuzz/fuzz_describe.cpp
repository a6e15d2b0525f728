// Mutated pools described and built again: either the description gives the pool's bytes back,
// or describe refuses; never a crash, and never a description that builds another pool. An
// input that holds fuzz::LANGUAGE_MARK is the default pool before it and the German pool (whole or
// partial) after it: described in both languages, or refused.
#include <QDir>
#include <QTemporaryDir>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "fuzz/fuzz_support.h"
#include "tools/describe/Describer.h"
#include "tools/describe/Language_pools.h"
#include "tools/pool/Pool_file.h"
#include "tools/pool/Pool_loader.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::quiet();
    if (size > (256u << 10))
        return 0;
    QByteArray input(reinterpret_cast<const char*>(data), int(size));
    const int mark = input.indexOf(fuzz::LANGUAGE_MARK);
    const QByteArray german = mark < 0 ? QByteArray() : input.mid(mark + int(strlen(fuzz::LANGUAGE_MARK)));
    if (mark >= 0)
        input.truncate(mark);
    VT::Object_pool pool;
    QString error;
    // The input's length chooses the form of version 6 objects it is read in.
    pool.set_vt6_objects(size % 2 ? VT::Vt6_objects::iso : VT::Vt6_objects::legacy);
    if (!VT::Pool_file::read(input, pool, &error))
        return 0;
    QStringList problems, warnings;
    VT::Described_languages languages;
    if (mark >= 0 &&
        !VT::Language_pools::read(pool, input, "fuzz.iop", "en", {{"de", "de.iop", german}}, languages, problems)) {
        FUZZ_CHECK(!problems.isEmpty());
        return 0;
    }
    // Asked for the file's bytes: a pool whose values were clamped while reading cannot give
    // them, and must be refused like anything else a description cannot carry.
    VT::Written_description text;
    if (!VT::Describer::describe(pool, input, {{}, "fuzz.iop", mark < 0 ? nullptr : &languages}, text, problems,
                                 warnings)) {
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
    if (mark >= 0) {
        VT::Object_pool in_german;
        VT::Language_choice choice{"de", nullptr};
        FUZZ_CHECK(VT::Pool_loader::load(QDir(dir.path()).filePath("pool.xml"), in_german, problems, warnings, false,
                                         nullptr, nullptr, false, &choice));
        FUZZ_CHECK(VT::Pool_file::write(in_german) == languages.pools.value("de"));
    }
    return 0;
}
