#!/usr/bin/env bash
# Builds the fuzz targets (clang, libFuzzer, AddressSanitizer + UndefinedBehaviorSanitizer)
# and runs each for SECONDS seconds (default 60):
#   scripts/fuzz.sh [SECONDS]
# VT_CORE_FUZZ_TARGETS="fuzz_object fuzz_picture" runs only those targets.
# Starting inputs come from the real pools in ../shared/pools (or $VT_SHARED_POOLS_DIR; skipped when
# absent) and the example
# descriptions. The corpus each target grows is kept in build-fuzz/corpus/<target> and reused
# by the next run. Fails on any crash, sanitizer report, leak or timeout; the input that caused
# it is left in build-fuzz/artifacts.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
VT_CORE_WITH_FUZZ=1 scripts/setup.sh

build=${VT_CORE_FUZZ_BUILD:-build-fuzz}
read -r -a targets <<<"${VT_CORE_FUZZ_TARGETS:-fuzz_pool_file fuzz_object fuzz_description fuzz_picture fuzz_render fuzz_check fuzz_describe fuzz_terminal_file fuzz_text_table}"
# A build that already has the fuzz targets (the test build, VT_CORE_FUZZ_BUILD=build-test) is used
# as it is.
if ! grep -q '^VT_CORE_FUZZ:BOOL=ON' "$build/CMakeCache.txt" 2>/dev/null; then
  CC=clang CXX=clang++ cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS="-O1 -g" \
    -DVT_CORE_TESTS=OFF -DVT_CORE_FUZZ=ON >/dev/null
fi
cmake --build "$build" -j"$(nproc)" --target fuzz_targets

export ASAN_OPTIONS=detect_leaks=1:abort_on_error=0:allocator_may_return_null=0
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
export QT_QPA_PLATFORM=offscreen

starts="$build/starts"
rm -rf "$starts"
mkdir -p "$starts"/{fuzz_pool_file,fuzz_object,fuzz_description,fuzz_picture,fuzz_render,fuzz_check,fuzz_describe,fuzz_terminal_file,fuzz_text_table} "$build/artifacts"
inputs=(examples/*.xml)
cp examples/*.xml "$starts/fuzz_description/"
cp examples/texts/*.txt "$starts/fuzz_text_table/"
# The check starts from the examples, the real pools and the pools the check's tests break.
cp examples/*.xml tests/data/check/* "$starts/fuzz_check/"
cp examples/terminals/* "$starts/fuzz_terminal_file/"
pools=${VT_SHARED_POOLS_DIR:-../shared/pools}
if [ -d "$pools" ]; then
  for f in "$pools"/*; do
    case "$f" in *.md | */LICENSE) continue ;; esac
    cp "$f" "$starts/fuzz_pool_file/"
    cp "$f" "$starts/fuzz_check/"
    inputs+=("$f")
  done
else
  echo "fuzz: no real pools at $pools; starting from the examples only"
fi
"$build/fuzz/fuzz_corpus" "$starts" "${inputs[@]}"

failed=()
for t in "${targets[@]}"; do
  corpus="$build/corpus/$t"
  log="$build/$t.log"
  mkdir -p "$corpus"
  echo "fuzz: $t for ${seconds}s"
  status=0
  "$build/fuzz/$t" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
    -artifact_prefix="$build/artifacts/$t-" "$corpus" "$starts/$t" >"$log" 2>&1 || status=$?
  if [ "$status" -ne 0 ] || grep -qE "ERROR: (AddressSanitizer|LeakSanitizer|libFuzzer)|runtime error:|check failed:" "$log"; then
    echo "fuzz: $t FAILED (exit $status); log: $log"
    grep -E "ERROR|runtime error|check failed|SUMMARY|Test unit written" "$log" | head -20 || true
    failed+=("$t")
    continue
  fi
  done_line=$(grep -E "^#[0-9]+[[:space:]]+DONE" "$log" | tail -1 || true)
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
  echo "fuzz: $t ok: ${runs:-?} runs; ${done_line:-no summary}; corpus $(ls "$corpus" | wc -l) files"
done
if [ ${#failed[@]} -ne 0 ]; then
  echo "fuzz: findings in ${failed[*]}"
  exit 1
fi
echo "fuzz: no findings"
