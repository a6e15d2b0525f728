#!/usr/bin/env bash
# Uses an installed vt_core as a user would, with the build tree moved away so that nothing
# installed can reach back into it:
#   scripts/check-install.sh BUILD                 installs BUILD into a temporary prefix first
#   scripts/check-install.sh --prefix DIR [BUILD]  vt_core is already installed under DIR
# Checks the installed files (the library's soname, no path into the build or source tree in
# RUNPATHs, CMake or pkg-config files, nothing from tests/, bench/ or fuzz/, vtpool --version,
# the man page and bash completion, which versions find_package accepts), then builds and runs
# examples/consumer through find_package(vt_core) alone (with the pool compiled in too when the
# package brings vt_core_add_pool), and examples/consumer/object_bytes.cpp through pkg-config
# alone. A build with sanitizers gets consumers built with them too.
set -euo pipefail
cd "$(dirname "$0")/.."
source_dir=$(pwd -P)

prefix=
build=
while [ $# -gt 0 ]; do
  case "$1" in
    --prefix) prefix=$2; shift 2 ;;
    *) build=$1; shift ;;
  esac
done
if [ -z "$prefix" ] && [ -z "$build" ]; then
  echo "usage: scripts/check-install.sh BUILD | --prefix DIR [BUILD]" >&2
  exit 2
fi

version=$(sed -n 's/^project(vt_core VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
sanitize=()
cxx=g++
if [ -n "$build" ]; then
  # The consumers are built by the build's compiler: sanitizer runtimes of two compilers do not mix.
  cxx=$(sed -n 's/^CMAKE_CXX_COMPILER:[A-Z]*=//p' "$build/CMakeCache.txt")
  if grep -q '^VT_CORE_SANITIZE:BOOL=ON' "$build/CMakeCache.txt"; then
    sanitize=(-fsanitize=address,undefined -fno-sanitize-recover=all)
  fi
fi

work=$(mktemp -d)
moved=
cleanup() {
  if [ -n "$moved" ]; then mv "$moved" "$build"; fi
  rm -rf "$work"
}
trap cleanup EXIT

if [ -z "$prefix" ]; then
  prefix=$work/prefix
  cmake --install "$build" --prefix "$prefix" >/dev/null
fi
if [ -n "$build" ]; then
  build_dir=$(cd "$build" && pwd -P)
  moved=$build_dir.moved-away
  mv "$build_dir" "$moved"
fi

fail() {
  echo "check-install: $*" >&2
  exit 1
}

# The installed files.
lib=$(find "$prefix"/lib* -maxdepth 2 -name "libvt_core.so.$version" | head -1)
[ -n "$lib" ] || fail "no libvt_core.so.$version under $prefix"
libdir=$(dirname "$lib")
major=${version%%.*}
minor=$(echo "$version" | cut -d. -f2)
soname=$(readelf -d "$lib" | sed -n 's/.*Library soname: \[\(.*\)\]/\1/p')
if [ "$major" = 0 ]; then expected=libvt_core.so.0.$minor; else expected=libvt_core.so.$major; fi
[ "$soname" = "$expected" ] || fail "the soname is '$soname', not $expected"
[ -e "$libdir/$soname" ] && [ -e "$libdir/libvt_core.so" ] || fail "no $soname or libvt_core.so link in $libdir"
for elf in "$prefix/bin/vtpool" "$lib"; do
  runpath=$(readelf -d "$elf" | sed -n 's/.*R\(UN\)\{0,1\}PATH.*\[\(.*\)\]/\2/p')
  case "$runpath" in '' | '$ORIGIN'*) ;; *) fail "$elf has the run path $runpath" ;; esac
done
installed=("$prefix/include/vt_core" "$prefix/include/vt_host" "$libdir/cmake/vt_core" "$libdir/pkgconfig/vt_core.pc"
  "$libdir/pkgconfig/vt_host.pc")
if grep -rlF "$source_dir" "${installed[@]}"; then fail "the files above name $source_dir"; fi
strays=$(find "$prefix/include/vt_core" "$prefix/include/vt_host" \
  \( -path '*/tests/*' -o -path '*/bench/*' -o -path '*/fuzz/*' -o -path '*/tools/vtpool*' -o ! -name '*.h' \) -type f)
[ -z "$strays" ] || fail "installed headers that are not public: $strays"
[ -f "$prefix/include/vt_core/vt_core.h" ] && [ -f "$prefix/include/vt_host/tools/pool/Object_pool.h" ] ||
  fail "public headers missing"
[ "$("$prefix/bin/vtpool" --version)" = "vtpool $version" ] || fail "vtpool --version does not say $version"
ls "$prefix"/share/man/man1/vtpool.1* "$prefix/share/bash-completion/completions/vtpool" >/dev/null ||
  fail "vtpool's man page or bash completion missing"

# The versions find_package accepts: while the version is 0.x, this minor version only.
rejected=("$major.$((minor + 1))" "$((major + 1)).0")
if [ "$major" = 0 ] && [ "$minor" -gt 0 ]; then rejected+=("0.$((minor - 1))"); fi
mkdir "$work/versions"
cat >"$work/versions/CMakeLists.txt" <<'EOF'
cmake_minimum_required(VERSION 3.16)
project(versions CXX)
foreach(wanted ${REJECTED})
  find_package(vt_core ${wanted} CONFIG QUIET)
  if(vt_core_FOUND)
    message(FATAL_ERROR "find_package(vt_core ${wanted}) accepts ${vt_core_VERSION}")
  endif()
endforeach()
find_package(vt_core ${ACCEPTED} CONFIG REQUIRED)
EOF
cmake -S "$work/versions" -B "$work/versions/build" -DCMAKE_PREFIX_PATH="$prefix" -DACCEPTED="$major.$minor" \
  -DREJECTED="$(IFS=';' && echo "${rejected[*]}")" >/dev/null

# A CMake project that knows only find_package(vt_core).
cmake -S examples/consumer -B "$work/consumer" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_COMPILER="$cxx" \
  -DCMAKE_CXX_FLAGS="${sanitize[*]}" -DCMAKE_EXE_LINKER_FLAGS="${sanitize[*]}" >/dev/null
cmake --build "$work/consumer"
"$work/consumer/consumer" "$work/consumer/small.iop"
if [ -f "$libdir/cmake/vt_core/vt_core_add_pool.cmake" ]; then
  "$work/consumer/compiled_consumer" "$work/consumer/small.iop"
fi

# A one-file program that knows only pkg-config.
export PKG_CONFIG_PATH=$libdir/pkgconfig
# shellcheck disable=SC2046 # the flags are words
"$cxx" -std=c++17 "${sanitize[@]}" examples/consumer/object_bytes.cpp -o "$work/object_bytes" $(pkg-config --cflags --libs vt_core)
LD_LIBRARY_PATH=$libdir "$work/object_bytes"
echo "check-install: vt_core $version installed under $prefix works through find_package and pkg-config"
