#!/usr/bin/env bash
# Builds the library, its tests and the fuzz targets once, with clang, AddressSanitizer,
# UndefinedBehaviorSanitizer and libFuzzer's coverage, and runs the whole suite through CTest
# (LeakSanitizer on: a leak fails the run). Then installs that build into a temporary prefix and
# builds and runs examples/consumer against it through find_package and pkg-config, with the
# build tree moved away (scripts/check-install.sh). Then runs each fuzz target of the same build
# for a short time (VT_CORE_FUZZ_SECONDS, default 20; 0 skips them), started from the real pools
# and the examples. Any failure, sanitizer report, leak or fuzz finding fails the run.
set -euo pipefail
cd "$(dirname "$0")/.."
fuzz_seconds=${VT_CORE_FUZZ_SECONDS:-20}
VT_CORE_WITH_TESTS=1 VT_CORE_WITH_FUZZ=1 scripts/setup.sh

# One build serves the tests and the fuzz targets: building the sources a second time for
# fuzzing would double the run's longest part. -O1 keeps the sanitized tests quick; line
# tables are all a sanitizer report needs.
build=${VT_CORE_TEST_BUILD:-build-test}
cmake -S . -B "$build" -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=Debug \
  -DCMAKE_CXX_FLAGS_DEBUG="-O1 -gline-tables-only" -DVT_CORE_SANITIZE=ON -DVT_CORE_TESTS=ON -DVT_CORE_FUZZ=ON \
  >/dev/null
cmake --build "$build" -j"$(nproc)"

export ASAN_OPTIONS=detect_leaks=1:abort_on_error=0:halt_on_error=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
export QT_QPA_PLATFORM=offscreen
(cd "$build" && ctest --output-on-failure -j"$(nproc)") | tee "$build/ctest.log"
summary=$(grep -E "tests passed|tests failed" "$build/ctest.log" | tail -1)
scripts/check-install.sh "$build"

if [ "$fuzz_seconds" != 0 ]; then
  VT_CORE_FUZZ_BUILD=$build scripts/fuzz.sh "$fuzz_seconds"
fi
# The suite's result closes the output.
echo "$summary"
