#!/usr/bin/env bash
# Formats the C++ sources, or with --check says which ones are not formatted and exits with 1.
set -eu
cd "$(dirname "$0")/.."
files=$(git ls-files --cached --others --exclude-standard -- '*.cpp' '*.h')
if [ "${1:-}" = --check ]; then
  # shellcheck disable=SC2086
  clang-format --dry-run --Werror $files
else
  # shellcheck disable=SC2086
  clang-format -i $files
fi
