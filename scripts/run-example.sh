#!/usr/bin/env bash
# The main job on the bundled example: builds vt_core and vtpool, builds the realistic example
# pool description into object-pool bytes for a 256-colour terminal, then dumps the pool.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh

build=${VT_CORE_BUILD:-build}
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DVT_CORE_TESTS=OFF >/dev/null
cmake --build "$build" -j"$(nproc)"

out="$build/realistic.iop"
"$build"/tools/vtpool build examples/realistic.xml -o "$out"
"$build"/tools/vtpool dump "$out"
