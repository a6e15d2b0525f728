#!/usr/bin/env bash
# Builds the Debian package of vt_core (library, host library, headers, CMake and pkg-config
# files, vtpool with its man page and bash completion) from a Release build for /usr in
# build-package, with CPack. As root it then checks the package on this machine: installs it
# with dpkg -i, asks the installed vtpool for its version, builds and runs examples/consumer
# against it (scripts/check-install.sh), and removes it again unless --keep is given or it was
# installed before.
#   scripts/package.sh [--keep]
set -euo pipefail
cd "$(dirname "$0")/.."
keep=0
if [ "${1:-}" = --keep ]; then keep=1; fi
VT_CORE_WITH_PACKAGE=1 scripts/setup.sh

build=${VT_CORE_PACKAGE_BUILD:-build-package}
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr -DVT_CORE_TESTS=OFF \
  -DCMAKE_INSTALL_DOCDIR=share/doc/vt-core >/dev/null
cmake --build "$build" -j"$(nproc)"
rm -f "$build"/vt-core_*.deb
(cd "$build" && cpack -G DEB)
deb=$(ls "$build"/vt-core_*.deb)
dpkg-deb --field "$deb" Package Version Architecture Depends Suggests

if [ "$(id -u)" -ne 0 ]; then
  echo "package: built $deb; run this script as root to install and check it"
  exit 0
fi
installed_before=0
if dpkg-query -W -f='${Status}' vt-core 2>/dev/null | grep -q "install ok installed"; then installed_before=1; fi
dpkg -i "$deb"
if [ "$keep" = 0 ] && [ "$installed_before" = 0 ]; then
  trap 'dpkg -r vt-core >/dev/null && echo "package: removed vt-core again"' EXIT
fi
version=$(dpkg-deb --field "$deb" Version)
answer=$(vtpool --version)
[ "$(command -v vtpool)" = /usr/bin/vtpool ] && [ "$answer" = "vtpool $version" ] || {
  echo "package: the installed vtpool answers '$answer' from $(command -v vtpool)" >&2
  exit 1
}
echo "package: /usr/bin/vtpool --version: $answer"
scripts/check-install.sh --prefix /usr "$build"
