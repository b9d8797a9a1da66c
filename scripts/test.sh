#!/usr/bin/env bash
# Sets up, builds and runs all tests in Wine. Arguments go to ctest, e.g. -R Logging.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/wine-env.sh

scripts/setup.sh --tests
scripts/build.sh release tested
JSW_OWN_DISPLAY=yes  # hides the windows of the tests

# Two Wines, each with a display of its own and with its server and programs on one processor: between
# two, every call of the server would wait for the other processor to wake up.
stay_on() { # PROCESSOR
  taskset --pid --cpu-list "$1" $$ >/dev/null
}
allowed=$(sed -n 's/^Cpus_allowed_list:[[:space:]]*//p' /proc/self/status)
export JSW_SECOND_CPU=${allowed##*[-,]}
stay_on "$JSW_SECOND_CPU"
start_wine test-beside
export JSW_SECOND_PREFIX=$WINEPREFIX JSW_SECOND_DISPLAY=$DISPLAY
stay_on "${allowed%%[-,]*}"
start_wine test
ctest --preset release "$@"
