#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test. Needs no display.
#   ./test.sh [--again]
# What has passed with all files and packages as they are now is not run again, but with --again.
set -eu
cd "$(dirname "$0")"
scripts/install-packages.sh build test

logs=$(mktemp -d)
# An end before its time takes along what runs aside, and tells what that has said.
ended() {
  for group in $(jobs -p); do
    kill -- "-$group" 2>/dev/null && cat "$logs"/* || true
  done
  rm -rf "$logs"
}
trap ended EXIT
mkdir -p build/passed
case "${1:-}" in
  '') ;;
  --again) rm -f build/passed/* ;;
  *) sed -n '2,4s/^# *//p' "$0"; exit 2 ;;
esac

# All files and packages as they are now. Without git nothing tells which files: then all is run.
state() {
  { git ls-files -coz --exclude-standard || date +%s%N; dpkg-query -W
    git ls-files -coz --exclude-standard | xargs -0 sha1sum; } 2>/dev/null | sha1sum
}
state=$(state)
base=

# step TITLE COMMAND...
step() {
  local title=$1 mark=build/passed/${1//[^[:alnum:]]/-}
  shift
  echo "== $title"
  if [ "$(cat "$mark" 2>/dev/null)" = "$state" ]; then
    echo "passed, with everything as it is now"
    return
  fi
  rm -f "$mark"
  "$@" || { echo "failed: $title"; return 1; }
  [ "$(state)$base" != "$state" ] || echo "$state" >"$mark" # unless a file changed meanwhile
}

build() { # build PRESET OPTION...
  echo "== Build: $1"
  { cmake --preset "$@" >/dev/null && cmake --build --preset "$1"; } || { echo "failed: Build: $1"; return 1; }
}

# What takes one core, or sleeps, runs beside what takes all of them; its words come at the end.
drills_of_release() {
  step "Kills, and what is left of the work" scripts/drills/kills 16
  step "The window on Wayland alone" scripts/check-wayland.sh build/release/bin/Veskora_ML
  step "What the README quotes" scripts/check-docs.sh build/release/bin/Veskora_batch
  step "The package, unpacked" check_package
  step "Faults in saves" scripts/drills/faults 100
  step "Several copies side by side" scripts/drills/copies 30
  step "A long day" scripts/drills/long-use 480
}
check_package() { scripts/check-package --no-chroot "$(./package.sh)"; }

drills_of_sanitizers() {
  step "A user without a mind, under the sanitizers" scripts/drills/hands 3000
  step "Arbitrary files, settings and arguments" scripts/drills/reader
}

checks_of_tidy() {
  base=$(git rev-parse HEAD origin/main 2>/dev/null || true)
  state+=$base
  step "Checks of .clang-tidy, over what changed" scripts/tidy
}

aside() { # aside FUNCTION
  set -m # a group of its own, which can be ended whole
  "$1" >"$logs/$1" 2>&1 &
  set +m
  asides+=("$!:$1")
}

asides=()
step "Format" scripts/format.sh --check
build release -DVESKORA_TESTS=ON
aside drills_of_release
step "Tests, optimised" ctest --preset release -j "$(nproc)"
build sanitize
aside drills_of_sanitizers
aside checks_of_tidy
step "Tests, under the address and undefined-behaviour sanitizers" ctest --preset sanitize -j "$(nproc)"
status=0
for one in "${asides[@]}"; do
  wait "${one%%:*}" || status=1
  cat "$logs/${one#*:}"
done
exit $status
