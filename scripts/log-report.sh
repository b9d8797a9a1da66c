#!/usr/bin/env bash
# Makes the pictures of docs/logging.md: two real jobs, of which the second misses its rules and a
# page, their log, and the page that jswctl makes of it. All is left in build/log-report.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/wine-env.sh

scripts/setup.sh --tests
scripts/build.sh release
JSW_OWN_DISPLAY=yes
start_wine log-report
tests/tools/log/log-report.sh "$PWD/build/release/bin" "$PWD/build/log-report"
for scheme in light dark; do
  convert "build/log-report/$scheme.png" +dither -colors 128 "png8:docs/log-report-$scheme.png"
done
ls -l docs/log-report-*.png
