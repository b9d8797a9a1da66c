#!/bin/sh
# Runs a test program in the second Wine of test.sh, if there is one. Without it, in the only one.
[ -z "$JSW_SECOND_PREFIX" ] && exec wine "$@"
export WINEPREFIX=$JSW_SECOND_PREFIX DISPLAY=$JSW_SECOND_DISPLAY
exec taskset --cpu-list "$JSW_SECOND_CPU" wine "$@"
