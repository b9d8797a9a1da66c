#!/usr/bin/env bash
# Runs two jobs of the real library, lets jswctl explain their log, and checks the page in a browser.
#
#   log-report.sh BIN WORK [HEIGHT]    programs in BIN; writes log, page and pictures of the page, with
#                                      this height in pixels, to WORK
#
# Wine must be running (scripts/wine-env.sh), with a display. Without a browser the page is not
# checked, which is reported; with CI set a browser is required.
set -euo pipefail
bin=$1
work=$2
height=${3:-1400}
host=$work/host
# A separate host, so that no other test writes to its log: the first four letters matter.
readonly program=qlrep.exe id=qlre
readonly logger="HKLM\\Software\\QuillonInkjet\\JSW\\Local\\$id\\Logger"
log=$WINEPREFIX/drive_c/ProgramData/${id}JSW.log

fail() {
  echo "error: $*" >&2
  exit 1
}

# A Linux path as a Windows path.
windows_path() {
  local path="Z:$1"
  echo "${path//\//\\}"
}

jswctl() {
  timeout 100 wine "$bin/jswctl.exe" "$@"
}

install_host() {
  rm -rf "$work"
  mkdir -p "$host"
  rm -f "$log"
  cp -r "$bin/data" "$bin"/{jsw,jswv,bcat,reng}.dll "$host/"
  cp "$bin/qldemo.exe" "$host/$program"
  sed "s/\\\\qlde\\\\/\\\\$id\\\\/" "$bin/qldejsw.loc" >"$host/${id}jsw.loc"
  jswctl remove "$(windows_path "$host/$program")" >/dev/null 2>&1 || true
  jswctl install "$(windows_path "$host/$program")" >/dev/null
  local value
  for value in startLog Proc_Id_In_Header Thread_Id_In_Header; do
    wine reg add "$logger" /v "$value" /t REG_DWORD /d 1 /f >/dev/null
  done
}

# run_job NAME, with the steps of the user and the driver on standard input. False if the window was
# not ready in time for the first click.
run_job() {
  cat >"$work/$1.jobscript"
  timeout 100 wine "$host/$program" --printer SimulatedPrinter --job "$1" --pages 2 --ink 90,10 \
    --script "$(windows_path "$work/$1.jobscript")" >"$work/$1.txt" 2>&1 </dev/null && return
  grep -q 'there is no job window' "$work/$1.txt" || fail "the job $1 failed: $(cat "$work/$1.txt")"
  return 1
}

# run_jobs SECONDS: how long the user waits before the first click.
run_jobs() {
  run_job report.pdf <<END || return 1
at 0.1 page 1
at $1.4 click ink
at $1.6 click current
at $1.7 page 2
END
  # The second job lacks its rules and the page behind the button.
  rm "$host/data/rules.xml" "$host/data/Scripts/inkstatus.jbb"
  run_job letter.doc <<END
at 0.1 page 1
at $1.4 click ink
END
}

# On a busy machine the window appears later.
run_jobs_in_time() {
  local seconds
  for seconds in 0 4 15; do
    install_host
    run_jobs "$seconds" && return
  done
  fail "there is no job window: $(cat "$work"/*.txt)"
}

# expect_answer CODE ARGUMENT...: the exit code of jswctl log; its output goes to $work/answer.txt.
expect_answer() {
  local expected=$1 code=0
  shift
  jswctl log "$@" >"$work/answer.txt" 2>"$work/error.txt" || code=$?
  sed -i 's/\r$//' "$work/answer.txt"
  ((code == expected)) || fail "jswctl log $*: exit code $code instead of $expected: $(cat "$work/error.txt")"
}

# expect_text TEXT...: each is in the last output.
expect_text() {
  local text
  for text in "$@"; do
    grep -qF -- "$text" "$work/answer.txt" || fail "missing in jswctl's output: $text"
  done
}

# The jobs alone, without the ids of their processes.
jobs_of() {
  sed -n -e 's/process [0-9a-f]*, //' -e '1,/^The log/p' "$1"
}

check_words() {
  cp "$log" "$work/jobs.log"
  expect_answer 1 "$(windows_path "$work/jobs.log")"
  expect_text '2 jobs in' '2 processes with ids in the lines' \
    'Job 1: "report.pdf" on "SimulatedPrinter", 2 pages, 1 copy' \
    'Job 2: "letter.doc" on "SimulatedPrinter", 2 pages, 1 copy' \
    'Billboard: "LOW_INK_ORDER" (page lowink.jbb), ' 'the rules named the category "LOW_INK"' \
    'the user clicks: INK_STATUS, number 0' 'the driver ends the job' 'updates: not due' \
    'ERROR - Unable to initialize the rules engine. NOT processing rules!!!' \
    ", pathBillboardFile='.\\data\\Scripts\\inkstatus.jbb'" 'RulesEngine::initialize' 'Slowest calls'
  grep -q 'not lines of a log' "$work/answer.txt" && fail "some of the library's lines are not understood"
  mv "$work/answer.txt" "$work/with-ids.txt"
  expect_answer 1 "$(windows_path "$work/jobs.log")" --json
  expect_text '{"jobs": [' '"name":"report.pdf"' '"moduleCalls": [{' '"trouble": [{'
  # Without the ids the report of each job is the same.
  sed 's/ pid=[0-9a-f]* tid=[0-9a-f]* / /' "$work/jobs.log" >"$work/no-ids.log"
  expect_answer 1 "$(windows_path "$work/no-ids.log")"
  diff <(jobs_of "$work/with-ids.txt") <(jobs_of "$work/answer.txt") ||
    fail "without ids the report differs"
}

check_bad_use() {
  local place
  for place in "$work/no-such.log" "$work" "$host/jsw.dll" "$host/data/catalog.xml"; do
    expect_answer 2 "$(windows_path "$place")"
    (($(wc -l <"$work/error.txt") == 1)) || fail "not one line: $(cat "$work/error.txt")"
    [[ ! -s "$work/answer.txt" ]] || fail "an answer for $place: $(head -3 "$work/answer.txt")"
  done
  expect_answer 2
  expect_answer 2 "$(windows_path "$work/jobs.log")" --html "$(windows_path "$work/jobs.log")"
  cmp -s "$log" "$work/jobs.log" || fail "the log was overwritten"
}

# look NAME SCHEME OPTION...: opens the page in a browser that has never run before, and keeps a
# picture of it in these colours: 0 dark, 1 light.
look() {
  timeout 100 chromium --headless --no-sandbox --disable-gpu --disable-quic --no-first-run \
    --disable-background-networking --disable-component-update --disable-sync --hide-scrollbars \
    --user-data-dir="$work/profile" --window-size=1240,"$height" --screenshot="$work/$1.png" \
    --blink-settings=preferredColorScheme="$2" "${@:3}" "file://$work/report.html" \
    2>"$work/browser.txt"
}

# expect_colour PICTURE COLOUR...: each must be somewhere in it.
expect_colour() {
  local picture=$1 colour
  shift
  convert "$picture" -format %c histogram:info:- >"$work/colours.txt"
  for colour in "$@"; do
    grep -q "$colour" "$work/colours.txt" || fail "$picture has nothing of the colour $colour"
  done
}

# expect_elements COUNT PATTERN: in the page as the browser has understood it.
expect_elements() {
  local count
  count=$(grep -oE -- "$2" "$work/dom.html" | wc -l)
  ((count == $1)) || fail "the page has $count of $2 instead of $1"
}

# Colours of the page, of bars of the view and of marks, light and dark.
check_page() {
  expect_answer 1 "$(windows_path "$work/jobs.log")" --html "$(windows_path "$work/report.html")"
  grep -qE '<script|https?:|<link|@import' "$work/report.html" && fail "the page is not self-contained"
  if [[ -z "${CI:-}" ]] && ! command -v chromium >/dev/null; then
    echo "The page was not looked at: there is no browser (package chromium)."
    return
  fi
  look light 1 --dump-dom >"$work/dom.html"
  look dark 0
  expect_elements 2 '<section class="job"'
  expect_elements 2 '<svg class="timeline"'
  expect_elements 6 'class="thread"'  # driver, rules, view
  expect_elements 1 '</html>'
  grep -q 'class="mark stops" d=' "$work/dom.html" || fail "no trouble is marked in a picture"
  expect_colour "$work/light.png" '#FFFFFF' '#4C8DD6' '#C62828'
  expect_colour "$work/dark.png" '#14181F' '#5B9BE0' '#FF7B72'
}

run_jobs_in_time
check_words
check_bad_use
check_page
jswctl remove "$(windows_path "$host/$program")" >/dev/null
rm -f "$log"
