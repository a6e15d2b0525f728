// Reading and writing whole pools: the real pools beside the repository, a synthetic pool of
// 20,000 objects, and building 5,000 objects from a description. memcpy of the same bytes
// runs alongside as the floor.

#include <malloc.h>

#include <QDir>
#include <QFile>
#include <cstring>
#include <vector>

#include "bench_support.h"

namespace {

const int SYNTHETIC_OBJECTS = 20000;
const int DESCRIPTION_OBJECTS = 5000;

void copy_floor(benchmark::State& state, const QByteArray& bytes, int objects)
{
    std::vector<char> to(size_t(bytes.size()));
    for (auto _ : state) {
        memcpy(to.data(), bytes.constData(), to.size());
        benchmark::ClobberMemory();
    }
    bench::report(state, bytes.size(), objects);
}

int count_objects(const QByteArray& bytes)
{
    VT::Object_pool pool;
    QString error;
    if (!VT::Pool_file::read(bytes, pool, &error)) {
        fprintf(stderr, "bench: pool does not read: %s\n", qPrintable(error));
        abort();
    }
    return pool.size();
}

// One pool read again and again, as a host reloads its pool: cleared outside the time, it
// keeps its object storage, so the figure is the reading itself rather than the kernel
// handing the process fresh pages.
void read(benchmark::State& state, const QByteArray& bytes)
{
    const int objects = count_objects(bytes);
    VT::Object_pool pool;
    for (auto _ : state) {
        QString error;
        bool ok = VT::Pool_file::read(bytes, pool, &error);
        benchmark::DoNotOptimize(ok);
        state.PauseTiming();
        pool.clear();
        state.ResumeTiming();
    }
    bench::report(state, bytes.size(), objects);
}

// `chunk` 0 writes the pool into one buffer.
void write(benchmark::State& state, const QByteArray& bytes, const VT::Serialisation_limits& limits, int chunk)
{
    VT::Object_pool pool;
    QString error;
    VT::Pool_file::read(bytes, pool, &error);
    pool.build_deferred();
    pool.set_serialisation_limits(limits);
    int64_t written = 0;
    for (auto _ : state) {
        if (chunk == 0) {
            QByteArray out = VT::Pool_file::write(pool);
            written = out.size();
            benchmark::DoNotOptimize(out.constData());
        } else {
            written = 0;
            VT::Pool_file::write_chunks(pool, chunk, [&](const uint8_t* p, int n) {
                benchmark::DoNotOptimize(p);
                written += n;
            });
        }
    }
    state.counters["written"] = double(written);
    bench::report(state, bytes.size(), pool.size());
}

const QByteArray& synthetic()
{
    return bench::mixed_pool_bytes(SYNTHETIC_OBJECTS);
}

void BM_synthetic_memcpy(benchmark::State& s) { copy_floor(s, synthetic(), SYNTHETIC_OBJECTS); }
void BM_synthetic_read(benchmark::State& s) { read(s, synthetic()); }
void BM_synthetic_write_256_colours(benchmark::State& s) { write(s, synthetic(), VT::Serialisation_limits(), 0); }
void BM_synthetic_write_16_colours_reduced_fonts(benchmark::State& s)
{
    write(s, synthetic(), bench::sixteen_colours_reduced_fonts(), 0);
}
void BM_synthetic_write_chunks_1785(benchmark::State& s) { write(s, synthetic(), VT::Serialisation_limits(), 1785); }

// The classes of a pool's objects, in pool order.
std::vector<const VT::Object_factory::Entry*> classes_of(const QByteArray& bytes)
{
    VT::Object_pool pool;
    QString error;
    VT::Pool_file::read(bytes, pool, &error);
    std::vector<const VT::Object_factory::Entry*> classes;
    for (VT::VT_obj* obj : pool.objects())
        classes.push_back(VT::Object_factory::find_for_pool(obj->get_type()));
    return classes;
}

// Building the synthetic pool's objects in the pool's storage without reading anything into
// them: what the object layout alone costs, the floor under reading.
void BM_synthetic_construct_only(benchmark::State& state)
{
    const QByteArray& bytes = synthetic();
    const std::vector<const VT::Object_factory::Entry*> classes = classes_of(bytes);
    std::vector<VT::VT_obj*> made(classes.size());
    VT::Object_pool pool;
    for (auto _ : state) {
        for (size_t i = 0; i < classes.size(); ++i)
            made[i] = pool.create(*classes[i]);
        benchmark::ClobberMemory();
        state.PauseTiming();
        for (VT::VT_obj* obj : made)
            pool.discard(obj);
        pool.clear();
        state.ResumeTiming();
    }
    bench::report(state, bytes.size(), int64_t(classes.size()));
}

// Heap held by the objects of the synthetic pool, every one built, against its size in bytes; the
// goal is at most 3 x the byte size + 10 MB. layout_bytes is what the objects themselves take (the
// sum of their classes' sizes), before any list item, text or picture they hold.
void BM_synthetic_memory(benchmark::State& state)
{
    const QByteArray& bytes = synthetic();
    double held = 0;
    double held_unbuilt = 0;
    for (auto _ : state) {
        malloc_trim(0);
        const size_t before = mallinfo2().uordblks;
        auto pool = std::make_unique<VT::Object_pool>();
        QString error;
        VT::Pool_file::read(bytes, *pool, &error);
        held_unbuilt = double(mallinfo2().uordblks) - double(before);
        pool->build_deferred();
        held = double(mallinfo2().uordblks) - double(before);
        benchmark::DoNotOptimize(pool.get());
    }
    state.counters["pool_bytes"] = double(bytes.size());
    state.counters["heap_bytes"] = held;
    state.counters["heap_bytes_unbuilt"] = held_unbuilt; // as reading leaves it
    state.counters["heap/bytes"] = held / double(bytes.size());
    state.counters["goal_bytes"] = 3.0 * double(bytes.size()) + 10.0 * 1024 * 1024;
    double layout = 0;
    for (const VT::Object_factory::Entry* entry : classes_of(bytes))
        layout += double(entry->size);
    state.counters["layout_bytes"] = layout;
}

void BM_description_memcpy(benchmark::State& s)
{
    static const QByteArray xml = bench::mixed_description(DESCRIPTION_OBJECTS);
    copy_floor(s, xml, DESCRIPTION_OBJECTS);
}

// Parsing the XML text and building every object through description input.
void BM_description_build_5000(benchmark::State& state)
{
    static const QByteArray xml = bench::mixed_description(DESCRIPTION_OBJECTS);
    int objects = 0;
    for (auto _ : state) {
        auto pool = std::make_unique<VT::Object_pool>();
        bench::build_description(xml, *pool);
        objects = pool->size();
        state.PauseTiming(); // the pool, and the description it keeps, are destroyed outside the time
        pool.reset();
        state.ResumeTiming();
    }
    bench::report(state, xml.size(), objects);
}

// The real pools kept beside the repository (../shared/pools), one benchmark each.
struct Real_pools
{
    std::vector<std::pair<QString, QByteArray>> pools;

    Real_pools()
    {
        QByteArray dir = qgetenv("VT_SHARED_POOLS_DIR");
        QDir d(dir.isEmpty() ? QStringLiteral(VT_SHARED_POOLS_DIR) : QString::fromLocal8Bit(dir));
        for (const QString& name : d.entryList({"*.iop"}, QDir::Files, QDir::Name)) {
            QFile f(d.filePath(name));
            if (f.open(QIODevice::ReadOnly))
                pools.emplace_back(name, f.readAll());
        }
        if (pools.empty())
            fprintf(stderr, "bench: no real pools in %s\n", qPrintable(d.absolutePath()));
        for (const auto& p : pools) {
            const QByteArray& bytes = p.second;
            const std::string n = p.first.toStdString();
            benchmark::RegisterBenchmark(("BM_real_memcpy/" + n).c_str(),
                                         [&bytes](benchmark::State& s) { copy_floor(s, bytes, count_objects(bytes)); });
            benchmark::RegisterBenchmark(("BM_real_read/" + n).c_str(), [&bytes](benchmark::State& s) { read(s, bytes); });
            benchmark::RegisterBenchmark(("BM_real_write/" + n).c_str(), [&bytes](benchmark::State& s) {
                write(s, bytes, VT::Serialisation_limits(), 0);
            });
        }
    }
};

const Real_pools real_pools;

}

BENCHMARK(BM_synthetic_memcpy);
BENCHMARK(BM_synthetic_read);
BENCHMARK(BM_synthetic_construct_only);
BENCHMARK(BM_synthetic_write_256_colours);
BENCHMARK(BM_synthetic_write_16_colours_reduced_fonts);
BENCHMARK(BM_synthetic_write_chunks_1785);
BENCHMARK(BM_synthetic_memory)->Iterations(1);
BENCHMARK(BM_description_memcpy);
BENCHMARK(BM_description_build_5000)->Unit(benchmark::kMillisecond);
