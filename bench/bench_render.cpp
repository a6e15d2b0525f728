// Drawing: the work mask of examples/realistic.xml (480 x 480 with its soft-key column), for a
// 256- and a 16-colour terminal, and the PNG encoding of the result.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>

#include "tools/pool/Pool_loader.h"
#include "tools/render/Png_writer.h"
#include "tools/render/Renderer.h"

namespace {

VT::Object_pool& example_pool()
{
    static VT::Object_pool pool;
    static bool loaded = false;
    if (!loaded) {
        QStringList problems, warnings;
        if (!VT::Pool_loader::load(QStringLiteral(VT_EXAMPLES_DIR "/realistic.xml"), pool, problems, warnings)) {
            fprintf(stderr, "cannot load the example: %s\n", qPrintable(problems.join("\n")));
            abort();
        }
        loaded = true;
    }
    return pool;
}

void render_work(benchmark::State& state, int colours)
{
    VT::Object_pool& pool = example_pool();
    VT::Terminal terminal;
    terminal.colours = colours;
    VT::Render::Renderer renderer(terminal, pool);
    VT::VT_obj* mask = pool.find(QByteArray("work"));
    for (auto _ : state) {
        VT::Render::Canvas c = renderer.render_screen(mask);
        benchmark::DoNotOptimize(c.row(0));
    }
    state.counters["pixels"] = 480 * 480;
}

void BM_render_realistic_mask_256(benchmark::State& state)
{
    render_work(state, 256);
}

void BM_render_realistic_mask_16(benchmark::State& state)
{
    render_work(state, 16);
}

void BM_render_png_encode(benchmark::State& state)
{
    VT::Object_pool& pool = example_pool();
    VT::Render::Renderer renderer(VT::Terminal(), pool);
    const VT::Render::Canvas c = renderer.render_screen(pool.find(QByteArray("work")));
    for (auto _ : state)
        benchmark::DoNotOptimize(VT::Render::encode_png(c).size());
}

}

BENCHMARK(BM_render_realistic_mask_256)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_render_realistic_mask_16)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_render_png_encode)->Unit(benchmark::kMillisecond);
