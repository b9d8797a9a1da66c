#!/usr/bin/env bash
# Checks the format of all C++ files and the order of the libraries. Then compiles each file with
# clang, without precompiled headers, for its warnings, and runs clang-tidy on all files except tests
# and benchmarks.
#
#   scripts/check.sh           format, layers and tidy
#   scripts/check.sh joined    the same in a quarter of the time: reads the files of a library as one, where
#                              a missing include may go unnoticed
#   scripts/check.sh format    format and layers only
#   scripts/check.sh fix       formats the files
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh --checks
mapfile -t files < <(git ls-files '*.cpp' '*.h')

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
folder=build/tidy
joined=()
if [[ "${1:-}" == joined ]]; then
  folder=build/tidy-joined
  joined=(-B "$folder" -D CMAKE_UNITY_BUILD=ON -D CMAKE_UNITY_BUILD_BATCH_SIZE=0)
fi
cmake --preset tidy "${joined[@]}" >build/configure.log 2>&1 || {
  cat build/configure.log
  exit 1
}
scripts/tidy.py "$folder"
