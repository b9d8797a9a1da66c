#!/usr/bin/env bash
# Builds the kit and packs it: build/release/package/jsw-VERSION-win64.zip.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh
scripts/build.sh release
rm -rf build/release/package
cpack --config build/release/CPackConfig.cmake
