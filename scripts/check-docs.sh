#!/usr/bin/env bash
# Fails when README.md quotes a report line that the real report of that example does not have.
# A quotation is a fenced block that opens with ```report and the name of the example.
#   scripts/check-docs.sh build/release/bin/Veskora_batch
set -euo pipefail
[ $# -eq 1 ] || { echo "Usage: scripts/check-docs.sh BATCH_BINARY" >&2; exit 2; }
batch=$(realpath -e "$1")
cd "$(dirname "$0")/.."
export LC_ALL=C # the decimal point

trimmed() { sed 's/[[:space:]]*$//' "$@"; } # columns are padded, and the report's lines end in CR LF

status=0 quoted=0 number=0 example='' report=''
while IFS= read -r line; do
  number=$((number + 1))
  case $line in
    '```report '*)
      example=${line#'```report '}
      report=$("$batch" - -- "examples/$example.vsk" 2>/dev/null | trimmed) || {
        echo "README.md:$number: no report of examples/$example.vsk" >&2
        exit 1
      } ;;
    '```'*) example='' ;;
    *)
      if [ -z "$example" ] || [ -z "$line" ]; then continue; fi
      quoted=$((quoted + 1))
      grep -qxF -e "$line" <<<"$report" || {
        echo "README.md:$number: not in the report of $example: $line" >&2
        status=1
      } ;;
  esac
done < <(trimmed README.md)
[ "$quoted" -gt 0 ] || { echo "README.md quotes no report" >&2; exit 1; }
exit "$status"
