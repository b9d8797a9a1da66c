#!/usr/bin/env bash
# Sets up, builds and runs all tests in Wine:  scripts/test.sh [PRESET] [ARGUMENT OF CTEST...]
#
#   scripts/test.sh            of build/release
#   scripts/test.sh debug      of build/debug; another preset is clang
#   scripts/test.sh -R job     some of them
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/wine-env.sh

preset=release
if [[ "${1:-}" =~ ^[a-z]+$ ]]; then
  preset=$1
  shift
fi
scripts/setup.sh --tests
scripts/build.sh "$preset" tested
JSW_OWN_DISPLAY=yes  # hides the windows of the tests

# Two Wines, each with a display and a processor of its own.
stay_on "$last_processor"
start_wine test-beside
export JSW_SECOND_CPU=$last_processor JSW_SECOND_PREFIX=$WINEPREFIX JSW_SECOND_DISPLAY=$DISPLAY
stay_on "$first_processor"
start_wine test
ctest --preset "$preset" "$@"
