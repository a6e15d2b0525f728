#!/usr/bin/env bash
# Redraws the renderer's golden images (tests/golden) from examples/realistic.xml. Run it on
# purpose, after a change meant to change the drawings (or the example): look at the new images
# (tests/golden/*/index.html) and commit them with the change.
#   scripts/update-golden.sh
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
build=${VT_CORE_GOLDEN_BUILD:-build-golden}
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DVT_CORE_TESTS=OFF >/dev/null
cmake --build "$build" -j"$(nproc)" --target vtpool
export QT_QPA_PLATFORM=offscreen
for colours in 256 16; do
  out=tests/golden/realistic-$colours
  rm -rf "$out"
  "$build/tools/vtpool" render examples/realistic.xml --all --colours "$colours" -o "$out"
done
