#!/usr/bin/env bash
# Measures in Wine what the library costs a driver, each operation beside the system's own time for
# it, and shows which targets hold:
#
#   scripts/bench.sh [TOPIC...] [--times N]
#
# Topics: trace macros record settings line job processes; none: all. --times multiplies the rounds,
# which helps on a busy machine. Writes the figures to build/bench/results.json and a picture of them
# to build/bench/performance.svg.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/wine-env.sh
readonly results=build/bench

scripts/setup.sh
scripts/build.sh --progress release qlbench
# One processor for the programs and Wine's server: a switch between two takes many times as long as a
# registry read, and how often it happens is chance.
taskset --pid --cpu-list 0 $$ >/dev/null
start_wine bench
mkdir -p "$results"
(cd build/release/bin && wine qlbench.exe --json ../../bench/results.json "$@")
python3 scripts/bench_picture.py "$results/results.json" >"$results/performance.svg"
