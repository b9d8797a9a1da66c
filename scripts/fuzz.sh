#!/usr/bin/env bash
# Builds each tests/fuzz/*Fuzz.cpp natively with clang's fuzzer and its address and
# undefined-behaviour sanitizers, and runs it from its seeds.
#
#   scripts/fuzz.sh [SECONDS [EXECUTIONS]]    per target; default 60 seconds, as many as fit
#
# A target names its inputs in its opening comment:
#   // sources: FILE...    of the library, relative to the root, without Windows in them
#   // corpus: NAME        its seeds, in tests/fuzz/corpus/NAME
# Findings are kept below build/fuzz; the seeds in the tree do not change.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
executions=${2:--1}

scripts/setup.sh --checks

directive() { # FILE NAME
  sed -n "s|^// $2: *||p" "$1"
}

fuzz() { # TARGET.cpp
  local name seeds work
  name=$(basename "$1" .cpp)
  seeds=tests/fuzz/corpus/$(directive "$1" corpus)
  work=build/fuzz/$name
  mkdir -p "$work/found" "$work/failures"
  # shellcheck disable=SC2046 # the sources are a list
  clang++ -std=c++20 -g -O2 -Wall -Wextra -I. -Iinclude \
    -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=all \
    "$1" $(directive "$1" sources) -o "$work/$name"
  echo "== $name: $seconds s, seeds in $seeds"
  "$work/$name" -max_total_time="$seconds" -runs="$executions" -max_len=4096 \
    -artifact_prefix="$work/failures/" -print_final_stats=1 "$work/found" "$seeds" \
    >"$work/log.txt" 2>&1 || {
    tail -40 "$work/log.txt"
    echo "error: $name failed; the input is in $work/failures" >&2
    return 1
  }
  grep -E '^stat::(number_of_executed_units|average_exec_per_sec)' "$work/log.txt"
}

for target in tests/fuzz/*Fuzz.cpp; do
  fuzz "$target"
done
