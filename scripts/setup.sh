#!/usr/bin/env bash
# Makes sure the build tools and libraries are present. As root it installs what is missing
# from Debian's packages; otherwise it names what to install and stops.
set -euo pipefail

# Building needs these; the tests (VT_CORE_WITH_TESTS=1) also GoogleTest, pkg-config for the
# installed-package check and groff for the man page, the Debian package (VT_CORE_WITH_PACKAGE=1)
# dpkg-dev and file for its dependencies.
packages=(cmake ninja-build g++ qtbase5-dev)
if [ "${VT_CORE_WITH_TESTS:-0}" = 1 ]; then packages+=(libgtest-dev pkg-config groff-base); fi
if [ "${VT_CORE_WITH_PACKAGE:-0}" = 1 ]; then packages+=(dpkg-dev file); fi
if [ "${VT_CORE_WITH_BENCH:-0}" = 1 ]; then packages+=(libbenchmark-dev); fi
if [ "${VT_CORE_WITH_FUZZ:-0}" = 1 ]; then packages+=(clang libclang-rt-dev); fi

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

if [ "$(id -u)" -ne 0 ]; then
  echo "Missing packages: ${missing[*]}" >&2
  echo "Install them with: sudo apt-get install ${missing[*]}" >&2
  exit 1
fi
echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
apt-get update -qq
apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
