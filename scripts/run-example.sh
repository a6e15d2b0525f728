#!/usr/bin/env bash
# The main job on the bundled example: builds vt_core and vtpool, builds the realistic example
# pool description into object-pool bytes for the 16-colour VT version 4 terminal of
# examples/terminals, checks them for that terminal (an error stops the script), then dumps them.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh

build=${VT_CORE_BUILD:-build}
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DVT_CORE_TESTS=OFF >/dev/null
cmake --build "$build" -j"$(nproc)"

out="$build/realistic.iop"
terminal=examples/terminals/colour-vt4.json
"$build"/tools/vtpool build examples/realistic.xml -o "$out" --terminal "$terminal" --downgrade
"$build"/tools/vtpool check "$out" --terminal "$terminal"
"$build"/tools/vtpool dump "$out"
