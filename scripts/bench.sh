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
stay_on "$first_processor"  # how often a call crosses to another one would be chance
start_wine bench
mkdir -p "$results"
(cd build/release/bin && wine qlbench.exe --json ../../bench/results.json "$@")
python3 scripts/bench_picture.py "$results/results.json" >"$results/performance.svg"
