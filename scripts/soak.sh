#!/usr/bin/env bash
# Runs long tests, as on a busy print server, and prints one line per part with its figures and the
# expected values.
#
#   scripts/soak.sh [MINUTES]    default 15, the full run; fewer run a share of each part
#
# The complete output of each part is in build/soak. Exits with 0 if nothing failed.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/wine-env.sh

readonly whole=15  # minutes
minutes=${1:-$whole}
if (($# > 1)) || ! [[ "$minutes" =~ ^[1-9][0-9]{0,3}$ ]]; then
  echo "usage: scripts/soak.sh [MINUTES]" >&2
  exit 2
fi
export JSW_SOAK_PERCENT=$((minutes * 100 / whole))
# The calls that fail one by one: every call, or every n-th.
export JSW_FAULT_STEP=$((minutes < whole ? (whole + minutes - 1) / minutes : 1))
export JSW_FAULT_MOST=1000000 JSW_FAULT_MOST_LOGGED=6 JSW_FAULT_LEVELS=0xffffffff
export JSW_WALK_SIZES=$((200 * JSW_SOAK_PERCENT / 100))

scripts/setup.sh
scripts/build.sh release
JSW_OWN_DISPLAY=yes  # hides ten thousand windows
start_wine soak

results=$PWD/build/soak
rm -rf "$results"
mkdir -p "$results"
cd build/release/bin

faults=0
part() { # NAME PROGRAM FILTER
  local log=$results/$1.log
  if wine "$2" --gtest_filter="$3" >"$log" 2>&1; then
    grep -a 'expected:' "$log" | tr -d '\r' || echo "$1: passed"  # not all have figures
  else
    faults=$((faults + 1))
    grep -aE 'expected:|Failure|^error:' "$log" | tr -d '\r' | head -20
    echo "error: $1 failed, see $log" >&2
  fi
}

start=$SECONDS
part jobs qltest-soak.exe 'CycleSoak.ManyJobs'
part cycles qltest-soak.exe 'CycleSoak.LoadJobAndFree'
part random qltest-soak.exe 'RandomSoak.*'
part exit qltest-soak.exe 'ExitSoak.*'
part faults qpfaults.exe '*'
part window qltest-windows.exe '*AnyResizing*'
echo "$faults of 6 parts with faults, in $(((SECONDS - start) / 60)) min $(((SECONDS - start) % 60)) s"
((faults == 0))
