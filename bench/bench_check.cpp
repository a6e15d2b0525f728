// Checking the pool of the 5,000-object description with every rule, to set beside building it
// (BM_description_build_5000): the goal is a check that takes less than twice as long.
#include <memory>

#include "bench_support.h"
#include "tools/check/Checker.h"

namespace {

void BM_check_5000(benchmark::State& state)
{
    const QByteArray xml = bench::mixed_description(5000);
    auto pool = std::make_unique<VT::Object_pool>();
    bench::build_description(xml, *pool);
    VT::Check::Source source;
    source.file = QStringLiteral("generated.xml");
    int findings = 0;
    for (auto _ : state) {
        const VT::Check::Result r = VT::Check::check(*pool, source);
        findings = r.findings.size();
        benchmark::DoNotOptimize(findings);
    }
    state.counters["findings"] = findings;
    bench::report(state, xml.size(), pool->size());
}

}

BENCHMARK(BM_check_5000)->Unit(benchmark::kMillisecond);
