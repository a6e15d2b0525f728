#!/usr/bin/env bash
# Writes docs/objects.md again from the object classes (vtpool types --markdown). Run it after a
# change to a class, to the meanings of options and enumerations or to the names descriptions
# accept, and commit the file with the change; a test fails while it is out of date.
#   scripts/update-docs.sh
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
build=${VT_CORE_DOCS_BUILD:-build-docs}
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DVT_CORE_TESTS=OFF >/dev/null
cmake --build "$build" -j"$(nproc)" --target vtpool
"$build/tools/vtpool" types --markdown -o docs/objects.md
