#!/usr/bin/env bash
# Checks the format of all C++ files and the order of the libraries. Then compiles each file with
# clang, without precompiled headers, for its warnings, and runs clang-tidy on all files except tests
# and benchmarks.
#
#   scripts/check.sh           format, layers and tidy
#   scripts/check.sh joined    the same in a quarter of the time: reads several files as one
#   scripts/check.sh format    format and layers only
#   scripts/check.sh fix       formats the files
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh --checks
mapfile -t tidied < <(git ls-files {PublicLib,jsw,common,window,samples,tools}'/*.cpp')
mapfile -t others < <(git ls-files {tests,bench}'/*.cpp')
mapfile -t headers < <(git ls-files '*.h')
files=("${tidied[@]}" "${others[@]}" "${headers[@]}")

if [[ "${1:-}" == fix ]]; then
  clang-format -i "${files[@]}"
  exit 0
fi
clang-format --dry-run --Werror "${files[@]}" || {
  echo "error: run scripts/check.sh fix" >&2
  exit 1
}
echo "format: clean (${#files[@]} files)"
scripts/check-layers.py
[[ "${1:-}" == format ]] && exit 0

mkdir -p build
cmake --preset tidy >build/configure.log 2>&1 || {
  cat build/configure.log
  exit 1
}
how=()
[[ "${1:-}" == joined ]] && how=(--joined)
scripts/tidy.py "${how[@]}" '' "${tidied[@]}"
scripts/tidy.py "${how[@]}" '-*,clang-diagnostic-*,modernize-use-override' "${others[@]}"
echo "tidy: clean (${#tidied[@]} files, ${#others[@]} for warnings alone)"
