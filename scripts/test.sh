#!/usr/bin/env bash
# Sets up, builds and runs all tests in Wine. Arguments go to ctest, e.g. -R Logging.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/wine-env.sh

scripts/setup.sh --tests
scripts/build.sh release tested
JSW_OWN_DISPLAY=yes  # hides the windows of the tests
start_wine test
ctest --preset release "$@"
