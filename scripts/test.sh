#!/usr/bin/env bash
# Sets up, builds and runs all tests in Wine. Arguments go to ctest, e.g. -R Logging.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/wine-env.sh

scripts/setup.sh
scripts/build.sh release
start_wine test
ctest --preset release "$@"
