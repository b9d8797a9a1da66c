#!/usr/bin/env bash
# Shows which lines and branches of the library the tests reach: builds with counters, runs all tests
# in Wine and summarises.
#
#   scripts/coverage.sh [CTEST ARGUMENTS]
#
# Prints the lines that no test reaches; build/coverage/report/index.html shows them in the source.
# Exits with 1 if a test fails.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/wine-env.sh

scripts/setup.sh --coverage
scripts/build.sh coverage
find build/coverage -name '*.gcda' -delete
JSW_OWN_DISPLAY=yes  # hides the windows of the tests
start_wine coverage
# Failures reach lines that nothing else reaches: more calls than in scripts/test.sh. With counters the
# library is slower.
export JSW_FAULT_STEP=1 JSW_FAULT_MOST=1000000 JSW_TEST_SECONDS=300
failed=
ctest --preset coverage "$@" || failed=yes

report=build/coverage/report
rm -rf "$report"
mkdir -p "$report"
# Branches taken only by exceptions are not decisions of the code.
gcovr --root . --filter jsw/ --filter PublicLib/ \
  --gcov-executable x86_64-w64-mingw32-gcov-posix --gcov-ignore-parse-errors \
  --exclude-throw-branches --exclude-unreachable-branches \
  --html-details "$report/index.html" --txt "$report/summary.txt" --print-summary build/coverage
echo "Not reached:"
awk '$4 ~ /^[0-9]+%$/ && $4 != "100%" && $1 != "TOTAL" {print "  " $1 ": " $5}' "$report/summary.txt"
[[ -z "$failed" ]]
