#!/usr/bin/env bash
# Fails when the window does not come up in a session that has a Wayland compositor and no X server.
#   scripts/check-wayland.sh build/release/bin/Veskora_ML
set -eu
[ $# -eq 1 ] || { echo "Usage: scripts/check-wayland.sh WINDOW_BINARY" >&2; exit 2; }
home=$(mktemp -d)
trap 'kill "${compositor:-}" "${window:-}" 2>/dev/null || true; rm -rf "$home"' EXIT
export XDG_RUNTIME_DIR=$home XDG_CONFIG_HOME=$home XDG_DATA_HOME=$home WAYLAND_DISPLAY=veskora
unset DISPLAY QT_QPA_PLATFORM
settings="$home/Kalvorn Veskora ML/settings.ini"
mkdir "$(dirname "$settings")"
printf '[Startup]\nShowForm=0\n' >"$settings" # no welcome form, which would wait for a hand

within() { # SECONDS COMMAND...
  local end=$((SECONDS + $1)); shift
  until "$@"; do
    [ $SECONDS -lt $end ] || return 1
    sleep 0.1
  done
}

weston --backend=headless-backend.so --socket="$WAYLAND_DISPLAY" --idle-time=0 >"$home/weston.log" 2>&1 &
compositor=$!
within 20 test -S "$home/$WAYLAND_DISPLAY" || { cat "$home/weston.log" >&2; exit 1; }
"$1" >"$home/window.log" 2>&1 &
window=$!
# The version is stored when the window is on the screen.
within 20 grep -q '^Version=' "$settings" || { cat "$home/window.log" >&2; exit 1; }
kill -TERM "$window"
status=0
wait "$window" || status=$?
[ "$status" -eq $((128 + 15)) ] || { echo "The window ended with $status" >&2; exit 1; }
