// Reading small pools, where what a read costs besides its objects counts: an empty pool, a
// pool of two objects, a screen of 20 plain objects (working set, data mask, soft-key mask,
// 8 keys, 8 output numbers, a font), and the synthetic pool without its pictures.
//
// Each read of a small pool goes into a new container and ends with the container, all timed,
// as a host that reads a pool per file pays it; the "reused" variants read into one container
// cleared after each read (the clearing timed too), as a host reloading its pool does. Reading
// leaves plain objects to be built when the pool is first looked at: the "built" variants look
// at every object after reading, as a host that uses the whole pool does.

#include "bench_support.h"

namespace {

QByteArray pool_bytes(const QByteArray& objects_xml)
{
    VT::Object_pool pool;
    bench::build_description("<?xml version=\"1.0\"?>\n<object_pool mask_size=\"480\">\n" + objects_xml +
                                 "</object_pool>\n",
                             pool);
    return VT::Pool_file::write(pool);
}

const QByteArray& two_objects()
{
    static const QByteArray bytes = pool_bytes(
        "<Working_set name=\"ws\" background_colour=\"white\" selectable=\"1\" active_mask=\"dm\">"
        "<Language code=\"en\"/></Working_set>\n"
        "<Data_mask name=\"dm\" background_colour=\"silver\"/>\n");
    return bytes;
}

const QByteArray& keys_and_numbers()
{
    static const QByteArray bytes = [] {
        QByteArray x = "<Working_set name=\"ws\" background_colour=\"white\" selectable=\"1\" active_mask=\"dm\">"
                       "<Language code=\"en\"/></Working_set>\n"
                       "<Data_mask name=\"dm\" background_colour=\"silver\" soft_key_mask=\"skm\">";
        for (int i = 0; i < 8; ++i)
            x += "<place object=\"on" + QByteArray::number(i) + "\" x_location=\"10\" y_location=\"" +
                 QByteArray::number(10 + 30 * i) + "\"/>";
        x += "</Data_mask>\n<Soft_key_mask name=\"skm\" background_colour=\"grey\">";
        for (int i = 0; i < 8; ++i)
            x += "<ref object=\"key" + QByteArray::number(i) + "\"/>";
        x += "</Soft_key_mask>\n";
        for (int i = 0; i < 8; ++i)
            x += "<Key name=\"key" + QByteArray::number(i) + "\" background_colour=\"white\" key_code=\"" +
                 QByteArray::number(i + 1) + "\"/>\n";
        for (int i = 0; i < 8; ++i)
            x += "<Output_number name=\"on" + QByteArray::number(i) +
                 "\" width=\"120\" height=\"24\" background_colour=\"white\" font_attributes=\"font\" value=\"" +
                 QByteArray::number(100 * i) + "\" offset=\"0\" scale=\"0.1\" no_decimals=\"1\"/>\n";
        x += "<Font_attributes name=\"font\" font_colour=\"black\" font_size=\"3\" font_type=\"0\" font_style=\"0\"/>\n";
        return pool_bytes(x);
    }();
    return bytes;
}

// The synthetic pool of the pool benchmarks without its picture graphics (references to them
// are left dangling, which reading does not look at).
const QByteArray& synthetic_without_pictures()
{
    static const QByteArray bytes = [] {
        VT::Object_pool pool;
        QString error;
        VT::Pool_file::read(bench::mixed_pool_bytes(20000), pool, &error);
        QByteArray out;
        for (VT::VT_obj* obj : pool.objects())
            if (obj->get_type() != VT::VT_obj_type::TYPE_PICTURE_GRAPHIC)
                out += VT::Pool_file::object_bytes(*obj);
        return out;
    }();
    return bytes;
}

int objects_in(const QByteArray& bytes)
{
    VT::Object_pool pool;
    QString error;
    if (!VT::Pool_file::read(bytes, pool, &error) && !bytes.isEmpty()) {
        fprintf(stderr, "bench: pool does not read: %s\n", qPrintable(error));
        abort();
    }
    return pool.size();
}

void report_reads(benchmark::State& state, const QByteArray& bytes, int objects)
{
    if (objects > 0)
        bench::report(state, bytes.size(), objects);
    // Seconds per read, printed with its unit prefix (1.2u is 1.2 us).
    state.counters["time/read"] =
        benchmark::Counter(double(state.iterations()), benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void read_new(benchmark::State& state, const QByteArray& bytes, bool built = false)
{
    const int objects = objects_in(bytes);
    for (auto _ : state) {
        VT::Object_pool pool;
        QString error;
        bool ok = VT::Pool_file::read(bytes, pool, &error);
        benchmark::DoNotOptimize(ok);
        if (built)
            benchmark::DoNotOptimize(pool.objects().constData());
    }
    report_reads(state, bytes, objects);
}

// `clear_timed` false clears the container outside the time, as BM_synthetic_read does.
void read_reused(benchmark::State& state, const QByteArray& bytes, bool clear_timed = true, bool built = false)
{
    const int objects = objects_in(bytes);
    VT::Object_pool pool;
    for (auto _ : state) {
        QString error;
        bool ok = VT::Pool_file::read(bytes, pool, &error);
        benchmark::DoNotOptimize(ok);
        if (built)
            benchmark::DoNotOptimize(pool.objects().constData());
        if (!clear_timed)
            state.PauseTiming();
        pool.clear();
        if (!clear_timed)
            state.ResumeTiming();
    }
    report_reads(state, bytes, objects);
}

void BM_small_read_empty(benchmark::State& s) { read_new(s, QByteArray()); }
void BM_small_read_two_objects(benchmark::State& s) { read_new(s, two_objects()); }
void BM_small_read_two_objects_reused(benchmark::State& s) { read_reused(s, two_objects()); }
void BM_small_read_keys_and_numbers(benchmark::State& s) { read_new(s, keys_and_numbers()); }
void BM_small_read_keys_and_numbers_reused(benchmark::State& s) { read_reused(s, keys_and_numbers()); }
void BM_small_read_keys_and_numbers_built(benchmark::State& s) { read_new(s, keys_and_numbers(), true); }

// The plain objects of the synthetic pool, read as BM_synthetic_read reads them.
void BM_synthetic_read_no_pictures(benchmark::State& s) { read_reused(s, synthetic_without_pictures(), false); }
void BM_synthetic_read_no_pictures_built(benchmark::State& s)
{
    read_reused(s, synthetic_without_pictures(), false, true);
}

}

BENCHMARK(BM_small_read_empty);
BENCHMARK(BM_small_read_two_objects);
BENCHMARK(BM_small_read_two_objects_reused);
BENCHMARK(BM_small_read_keys_and_numbers);
BENCHMARK(BM_small_read_keys_and_numbers_reused);
BENCHMARK(BM_small_read_keys_and_numbers_built);
BENCHMARK(BM_synthetic_read_no_pictures);
BENCHMARK(BM_synthetic_read_no_pictures_built);
