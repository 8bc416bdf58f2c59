#!/usr/bin/env bash
# Installs what is missing, builds, and makes the Debian package, or a folder that runs where no
# package can be installed, as an archive. Prints the path of what was made, below build/.
#   ./package.sh [--folder]
set -eu
usage() { echo "Usage: ./package.sh [--folder]"; }
case "$*" in -h | --help) usage; exit 0 ;; "" | --folder) ;; *) usage >&2; exit 2 ;; esac
cd "$(dirname "$0")"
scripts/install-packages.sh build package

preset=(--preset release)
# The tests need more packages than the program does.
dpkg-query -W libgmock-dev >/dev/null 2>&1 || preset+=(-DVESKORA_TESTS=OFF)
{
  cmake "${preset[@]}"
  cmake --build --preset release --target veskora_installed
} >&2

value() { sed -n "s/^$1:[A-Z]*=//p" build/release/CMakeCache.txt; }
version=$(value CMAKE_PROJECT_VERSION)
told=$(dpkg-parsechangelog -l packaging/changelog -S Version)
released=$(sed -n 's/.*<release version="\([^"]*\)".*/\1/p' packaging/veskora-ml.metainfo.xml.in | head -1)
if [ "$told" != "$version" ] || [ "$released" != "$version" ]; then
  echo "The version is $version, but packaging/changelog begins with $told and the metainfo's releases with $released." >&2
  exit 1
fi
[ -n "$(value VESKORA_DOCS_URL)" ] || echo "The metainfo has no screenshots until VESKORA_DOCS_URL tells where docs/ stands on the web." >&2
# Two packages of one version are the same to the bit.
export SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(dpkg-parsechangelog -l packaging/changelog -S Timestamp)}

if [ "${1:-}" = --folder ]; then
  archive=build/veskora-ml-$version-$(uname -m).tar.xz
  packaging/folder build/release "$archive" >&2
  echo "$archive"
else
  cpack --config build/release/CPackConfig.cmake -B build/package >&2
  echo "build/package/veskora-ml_${version}_$(dpkg --print-architecture).deb"
fi
