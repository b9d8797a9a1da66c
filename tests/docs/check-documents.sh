#!/usr/bin/env bash
# Holds README.md, CONTRIBUTING.md and docs/ to the code: every file, command, option, registry value,
# function and log text that they set in `code` must be there.
#
#   tests/docs/check-documents.sh
#
# What is not of this project (Windows' own names, made-up examples) is listed in foreign-names.txt.
set -euo pipefail
cd "$(dirname "$0")/../.."
here=tests/docs

documents=(README.md CONTRIBUTING.md docs/*.md)
code=$(mktemp)
trap 'rm -f "$code" "$code".*' EXIT

# The code with its doubled backslashes made single, as the documents write paths.
find jsw PublicLib include window samples tools scripts cmake bench tests CMakeLists.txt CMakePresets.json \
  -type f ! -name '*.png' ! -name '*.bmp' ! -path 'tests/docs/*' ! -path 'tests/fuzz/corpus/*' \
  -exec sed 's/\\\\/\\/g' {} + | tr -d '\r' >"$code"
find . -path ./build -prune -o -path ./.git -prune -o -type f -printf '%P\n' -o -type d -printf '%P/\n' \
  >"$code.files"
# Programs and modules by the targets that build them.
sed -nE 's/^ *(jsw_module|add_executable|add_library)\(([a-z_]+)( .*)?$/\2.dll\n\2.exe/p' \
  $(find jsw window samples tools bench -name CMakeLists.txt) >>"$code.files"
grep -A1 -hE '^ *(add_executable|jsw_module)\($' $(find jsw window samples tools bench -name CMakeLists.txt) |
  sed -nE 's/^ +([a-z_]+)$/\1.dll\n\1.exe/p' >>"$code.files"

awk -v foreign="$here/foreign-names.txt" -v code="$code" -f "$here/check-documents.awk" "${documents[@]}"
