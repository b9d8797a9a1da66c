#!/usr/bin/env bash
# Sets up, builds and runs all tests in Wine. Arguments go to ctest, e.g. -R Logging.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/wine-env.sh

scripts/setup.sh --tests
scripts/build.sh release tested
JSW_OWN_DISPLAY=yes  # hides the windows of the tests

# Two Wines, each with a display and a processor of its own.
stay_on "$last_processor"
start_wine test-beside
export JSW_SECOND_CPU=$last_processor JSW_SECOND_PREFIX=$WINEPREFIX JSW_SECOND_DISPLAY=$DISPLAY
stay_on "$first_processor"
start_wine test
ctest --preset release "$@"
