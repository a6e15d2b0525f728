#!/usr/bin/env bash
# Builds the library and its tests with AddressSanitizer and UndefinedBehaviorSanitizer and
# runs the whole suite through CTest. Any failure or sanitizer report fails the run.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh

build=${VT_CORE_TEST_BUILD:-build-test}
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DVT_CORE_SANITIZE=ON >/dev/null
cmake --build "$build" -j"$(nproc)"

export ASAN_OPTIONS=detect_leaks=1:abort_on_error=0:halt_on_error=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
export QT_QPA_PLATFORM=offscreen
cd "$build"
ctest --output-on-failure -j"$(nproc)"
