#!/usr/bin/env bash
# Checks the format of all C++ files and the order of the libraries, and runs clang-tidy over all but
# the tests.
#
#   scripts/check.sh           format, layers and tidy
#   scripts/check.sh format    format and layers alone
#   scripts/check.sh fix       puts the format right
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh --checks
mapfile -t sources < <(git ls-files 'PublicLib/*.cpp' 'jsw/*.cpp' 'window/*.cpp' 'samples/*.cpp' 'tools/*.cpp' 'tests/*.cpp' 'bench/*.cpp')
mapfile -t headers < <(git ls-files '*.h')

if [[ "${1:-}" == fix ]]; then
  clang-format -i "${sources[@]}" "${headers[@]}"
  exit 0
fi
clang-format --dry-run --Werror "${sources[@]}" "${headers[@]}" || {
  echo "error: run scripts/check.sh fix" >&2
  exit 1
}
echo "format: clean (${#sources[@]} sources, ${#headers[@]} headers)"
scripts/check-layers.py
[[ "${1:-}" == format ]] && exit 0

scripts/build.sh release >/dev/null
# A flag that only GCC knows goes, or clang would take it for an error.
database=build/tidy
mkdir -p "$database"
sed 's/ -Wno-restrict//' build/release/compile_commands.json >"$database/compile_commands.json"
# clang must see what the cross-compiler sees: its C++ headers, then its C headers.
mingw=/usr/lib/gcc/x86_64-w64-mingw32
version=$(x86_64-w64-mingw32-g++-posix -dumpversion)
extra=(--extra-arg=--target=x86_64-w64-windows-gnu)
for folder in "$mingw/$version/include/c++" "$mingw/$version/include/c++/x86_64-w64-mingw32" \
  /usr/x86_64-w64-mingw32/include; do
  extra+=("--extra-arg=-isystem$folder")
done
mapfile -t tidied < <(git ls-files 'PublicLib/*.cpp' 'jsw/*.cpp' 'window/*.cpp' 'samples/*.cpp' 'tools/*.cpp')
printf '%s\n' "${tidied[@]}" |
  xargs -P 2 -n 4 clang-tidy -p "$database" --quiet "${extra[@]}"
echo "tidy: clean (${#tidied[@]} sources)"
