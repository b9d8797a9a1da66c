#!/usr/bin/env bash
# Sets up, builds and runs all tests in Wine. Arguments go to ctest, e.g. -R Logging.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/wine-env.sh

scripts/setup.sh --tests
scripts/build.sh release tested
JSW_OWN_DISPLAY=yes  # nobody needs to see the windows of tests
start_wine test
ctest --preset release "$@"
