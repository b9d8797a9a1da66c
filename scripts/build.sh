#!/usr/bin/env bash
# Builds everything with the preset given (default: release).
set -euo pipefail
cd "$(dirname "$0")/.."
preset=${1:-release}

mkdir -p build
cmake --preset "$preset" >build/configure.log 2>&1 || {
  cat build/configure.log
  exit 1
}
cmake --build --preset "$preset"
