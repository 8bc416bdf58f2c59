#!/usr/bin/env bash
# Installs the Debian packages that are missing.   scripts/install-packages.sh build|test|bench|pictures...
set -eu

declare -A packages=(
  [build]="cmake ninja-build g++ python3 libeigen3-dev qt6-base-dev qt6-svg-dev qt6-wayland qt6-translations-l10n libharfbuzz-dev libxlsxwriter-dev libminizip-dev zlib1g-dev pkg-config fonts-liberation2
    qt6-tools-dev qt6-documentation-tools libqt6sql6-sqlite"
  [test]="libgtest-dev libgmock-dev clang clang-format clang-tidy libclang-rt-14-dev locales python3-openpyxl poppler-utils weston"
  [package]="dpkg-dev patchelf xz-utils lintian appstream desktop-file-utils shared-mime-info libglib2.0-bin man-db debootstrap
    xvfb xdotool x11-utils"
  [bench]="libbenchmark-dev python3"
  [mutants]="python3-clang-14 git"
  [pictures]="chromium xvfb openbox xdotool imagemagick x11-utils poppler-utils"
)

missing=()
for group in "$@"; do
  for package in ${packages[$group]}; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed' || missing+=("$package")
  done
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}" >&2
as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "Please install as the superuser: apt-get install ${missing[*]}" >&2; exit 1; }
  as_root=(sudo)
fi
export DEBIAN_FRONTEND=noninteractive
{
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
} >&2
