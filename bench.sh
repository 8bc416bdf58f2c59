#!/usr/bin/env bash
# Builds and runs the benchmarks: medians of one run, and how the entries stand to each other.
#   ./bench.sh [--json FILE]
set -eu
json=
case "${1:-}" in
  "") ;;
  --json) [ $# -eq 2 ] || { echo "Usage: ./bench.sh [--json FILE]" >&2; exit 2; }; json=$(realpath -m "$2") ;;
  *) echo "Usage: ./bench.sh [--json FILE]" >&2; exit 2 ;;
esac
cd "$(dirname "$0")"
scripts/install-packages.sh build bench
cmake --preset bench >/dev/null
cmake --build --preset bench >&2
[ -n "$json" ] || { json=$(mktemp); trap 'rm -f "$json"' EXIT; }
build/bench/bench/veskora_bench --benchmark_repetitions=7 --benchmark_report_aggregates_only=true \
  --benchmark_min_time=0.1 --benchmark_out="$json" --benchmark_out_format=json >/dev/null
bench/table.py "$json"
