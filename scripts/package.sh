#!/usr/bin/env bash
# Builds the kit and packs it:  scripts/package.sh [PRESET]
#
#   release   the default: build/release/package/jsw-VERSION-win64.zip, with symbols for gdb
#   clang     the same in build/clang, with a .pdb for the debuggers of Windows
set -euo pipefail
cd "$(dirname "$0")/.."
preset=${1:-release}

scripts/setup.sh --tests
scripts/build.sh "$preset"
rm -rf "build/$preset/package"
cpack --config "build/$preset/CPackConfig.cmake"
