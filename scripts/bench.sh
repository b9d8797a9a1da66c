#!/usr/bin/env bash
# Measures what the library costs a driver, in Wine. Arguments go to the benchmark program.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/wine-env.sh

scripts/setup.sh
scripts/build.sh release
start_wine bench
cd build/release/bin
wine qlbench.exe --benchmark-samples 20 "$@"
