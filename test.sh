#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test. Needs no display.
set -eu
cd "$(dirname "$0")"
scripts/install-packages.sh build test

scripts/format.sh --check

echo "== Tests, optimised"
cmake --preset release -DVESKORA_TESTS=ON >/dev/null
cmake --build --preset release
scripts/drills/kills 16 & # it sleeps most of its time
drill=$!
ctest --preset release -j "$(nproc)"

echo "== The window on Wayland alone"
scripts/check-wayland.sh build/release/bin/Veskora_ML

echo "== What the README quotes"
scripts/check-docs.sh build/release/bin/Veskora_batch

echo "== The package, unpacked"
scripts/check-package --no-chroot "$(./package.sh)"

echo "== Faults in saves"
scripts/drills/faults 100

echo "== Kills, and what is left of the work"
wait $drill

echo "== Several copies side by side, and a long day"
scripts/drills/copies 30
scripts/drills/long-use 480

echo "== Tests, under the address and undefined-behaviour sanitizers"
cmake --preset sanitize >/dev/null
cmake --build --preset sanitize
ctest --preset sanitize -j "$(nproc)"

echo "== A user without a mind, under the sanitizers"
scripts/drills/hands 3000

echo "== Arbitrary files, settings and arguments"
scripts/drills/reader
