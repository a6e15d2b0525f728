// Building the 5,000-object description for a terminal, as vtpool build does: the plain build
// (a 256-colour terminal of the designed size) against a 16-colour terminal scaled from a
// 480 x 480 design to 320 x 320, whose build reduces every colour and picture and fits every font.

#include "bench_support.h"
#include "tools/terminal/Terminal_adaptation.h"

namespace {

const int OBJECTS = 5000;

void build_for(benchmark::State& state, const VT::Terminal& terminal, const VT::Terminal_adaptation::Options& options)
{
    static const QByteArray xml = bench::mixed_description(OBJECTS);
    int objects = 0;
    int64_t written = 0;
    for (auto _ : state) {
        auto pool = std::make_unique<VT::Object_pool>();
        bench::build_description(xml, *pool);
        QStringList problems, warnings;
        if (!VT::Terminal_adaptation::adapt(*pool, terminal, options, problems, warnings)) {
            fprintf(stderr, "bench: %s\n", qPrintable(problems.join('\n')));
            abort();
        }
        const QByteArray bytes = VT::Pool_file::write(*pool);
        written = bytes.size();
        objects = pool->size();
        state.PauseTiming(); // the pool, and the description it keeps, are destroyed outside the time
        pool.reset();
        state.ResumeTiming();
    }
    state.counters["written"] = double(written);
    bench::report(state, xml.size(), objects);
}

void BM_terminal_build_5000_plain(benchmark::State& state)
{
    build_for(state, VT::Terminal(), {});
}

void BM_terminal_build_5000_16_colours_scaled(benchmark::State& state)
{
    VT::Terminal terminal;
    terminal.vt_version = 4;
    terminal.colours = 16;
    terminal.data_mask_width = terminal.data_mask_height = 320;
    terminal.key_width = terminal.key_height = 40;
    terminal.small_fonts = 0x3F;
    terminal.large_fonts = 0x00;
    build_for(state, terminal, {VT::Design_size{480, 480, 60, 60}});
}

}

BENCHMARK(BM_terminal_build_5000_plain)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_terminal_build_5000_16_colours_scaled)->Unit(benchmark::kMillisecond);
