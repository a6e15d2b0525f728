#!/usr/bin/env bash
# Builds the library and runs the main job on the bundled example.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh

build=${VT_CORE_BUILD:-build}
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DVT_CORE_TESTS=OFF >/dev/null
cmake --build "$build" -j"$(nproc)"
"$build"/examples/vt_example
