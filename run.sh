#!/usr/bin/env bash
# Installs what is missing, builds, and opens the model in the window. Without a display the model
# is analysed with the batch runner and its report is printed.
#   ./run.sh [model.vsk]
set -eu
usage() { echo "Usage: ./run.sh [model.vsk]   (several models: build/release/bin/Veskora_batch --help)"; }
case "${1:-}" in -h | --help) usage; exit 0 ;; esac
[ $# -le 1 ] || { usage >&2; exit 2; }
root=$(cd "$(dirname "$0")" && pwd)
"$root/scripts/install-packages.sh" build
(
  cd "$root"
  preset=(--preset release)
  # The tests need more packages than the program does.
  dpkg-query -W libgmock-dev >/dev/null 2>&1 || preset+=(-DVESKORA_TESTS=OFF)
  cmake "${preset[@]}" >/dev/null
  cmake --build --preset release --target Veskora_ML Veskora_batch
) >&2
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  exec "$root/build/release/bin/Veskora_ML" "$@"
fi
exec "$root/build/release/bin/Veskora_batch" - -- "${1:-$root/examples/portal_frame.vsk}"
