#!/usr/bin/env bash
# Makes the pictures of docs/logging.md: runs two real jobs, the second without its rules and a page,
# and lets jswctl make a page of their log. Everything is in build/log-report afterwards.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/wine-env.sh

scripts/setup.sh --browser
scripts/build.sh release
JSW_OWN_DISPLAY=yes
start_wine log-report
tests/tools/log/log-report.sh "$PWD/build/release/bin" "$PWD/build/log-report" 5000
for scheme in light dark; do
  picture=build/log-report/$scheme.png
  box=$(convert "$picture" -format '%@' info:)  # WIDTHxHEIGHT+X+Y of what is not empty
  [[ "$box" =~ x([0-9]+)[+][0-9]+[+]([0-9]+)$ ]]
  height=$((BASH_REMATCH[1] + BASH_REMATCH[2] + 24))  # the rest of the window is cut off
  convert "$picture" -crop "x$height+0+0" +repage +dither -colors 128 "png8:docs/log-report-$scheme.png"
done
ls -l docs/log-report-*.png
