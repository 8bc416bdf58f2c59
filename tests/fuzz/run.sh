#!/usr/bin/env bash
# A short run of the fuzz target with a fixed seed.   tests/fuzz/run.sh BINARY [RUNS]
# The inputs begin with the examples, their truncations, a megabyte on one line and binary rubbish.
set -eu
binary=$(realpath "$1")
runs=${2:-15000}
root=$(cd "$(dirname "$0")/../.." && pwd)
corpus=$(mktemp -d)
trap 'rm -rf "$corpus"' EXIT
cd "$corpus"

cp "$root"/examples/*.vsk "$root"/tests/data/*.vsk .
small=$root/tests/data/small.vsk
size=$(stat -c %s "$small")
for ((kept = 0; kept < size; kept += 3)); do head -c "$kept" "$small" >"cut_$kept.vsk"; done
{ head -n 10 "$small"; head -c 1048576 /dev/zero | tr '\0' '7'; } >long_line.vsk
head -c 1048576 /dev/zero | tr '\0' '*' >long_banner.vsk
{ head -n 6 "$small"; head -c 65536 "$binary"; } >rubbish_behind_the_banner.vsk
head -c 65536 "$binary" >rubbish.vsk
given=$(find . -type f | wc -l)

echo "Fuzzing the model file reader: $given given inputs and $runs made of them"
# Every given input once, whole; then the mutations, of inputs up to 64 KiB.
find . -type f -print0 | xargs -0 "$binary" -timeout=10 2>given.log || { tail -n 40 given.log; exit 1; }
rm given.log
"$binary" -seed=1 -runs="$runs" -max_len=65536 -timeout=10 -artifact_prefix="$root/build/" . 2>fuzz.log \
  || { tail -n 40 fuzz.log; exit 1; }
grep -E '^Done|stat::number_of_executed_units' fuzz.log || tail -n 1 fuzz.log
