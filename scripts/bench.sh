#!/usr/bin/env bash
# Benchmarks: a Release build without sanitizers in build-bench, then the table.
#   scripts/bench.sh [google-benchmark options, e.g. --benchmark_filter=synthetic]
# The real pools are read from ../shared/pools (or $VT_SHARED_POOLS_DIR) when present.
set -euo pipefail
cd "$(dirname "$0")/.."
VT_CORE_WITH_BENCH=1 scripts/setup.sh

build=${VT_CORE_BENCH_BUILD:-build-bench}
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DVT_CORE_TESTS=OFF -DVT_CORE_BENCH=ON >/dev/null
cmake --build "$build" -j"$(nproc)" --target vt_core_bench
export QT_QPA_PLATFORM=offscreen
exec "$build/bench/vt_core_bench" "$@"
