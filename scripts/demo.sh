#!/usr/bin/env bash
# Demonstrates the library in Wine:  scripts/demo.sh [STORY]
#
#   job       print jobs: one that keeps the welcome page, two with little ink, of which the second
#             shows the next billboard because the first is in the history, and one on a printer
#             behind a device client
#   updates   the updater is started at the end of a job, and the next job switches to its new modules
#             and data; then prompts in the middle of a job
#
# Every run starts like a machine without the library. Screenshots, the recorded web addresses and the
# log are in build/demo afterwards.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/wine-env.sh
source scripts/demo-updates.sh

bin=build/release/bin  # where the programs of the story lie
readonly results=build/demo
readonly urls=$results/urls.txt

heading() {
  printf '\n== %s ==\n' "$1"
}

# A Linux path as a Windows path.
windows_path() {
  local path="Z:$PWD/$1"
  echo "${path//\//\\}"
}

run_wine() {
  timeout 120 wine "$@"
}

# Removes settings, history, log and results of earlier runs.
forget_everything() {
  rm -rf "$results"
  mkdir -p "$results"
  touch "$urls"
  rm -f "$(log_file)"
  run_wine reg delete 'HKLM\Software\QuillonInkjet' /f >/dev/null 2>&1 || true
  # The version of Windows from an earlier run.
  run_wine reg delete 'HKCU\Software\Wine\AppDefaults\qldemo.exe' /f >/dev/null 2>&1 || true
}

# Moves the log to the end of the results' own.
keep_log() {
  cat "$(log_file)" >>"$results/qldeJSW.log"
  rm -f "$(log_file)"
}

log_file() {
  echo "$WINEPREFIX/drive_c/ProgramData/qldeJSW.log"
}

# Records web addresses that the window opens in a file, instead of starting a browser.
record_web_addresses() {
  local command
  command="\"$(windows_path "$bin/qldemo.exe")\" --record-url \"$(windows_path "$urls")\" \"%1\""
  run_wine reg delete 'HKCR\http\shell\open' /f >/dev/null 2>&1 || true
  run_wine reg add 'HKCR\http' /v 'URL Protocol' /d '' /f >/dev/null
  run_wine reg add 'HKCR\http\shell\open\command' /ve /d "$command" /f >/dev/null
}

# The file appears when it is complete: qldemo waits for it.
take_screenshot() {
  import -window root "png:$results/$1.part" && mv "$results/$1.part" "$results/$1.png"
}

# Runs qldemo, shows its output and takes the screenshots that it requests.
run_qldemo() {
  echo "qldemo $*"
  run_wine "$bin/qldemo.exe" --screenshots "$(windows_path "$results")" "$@" </dev/null 2>&1 |
    while IFS= read -r line; do
      line=${line%$'\r'}
      echo "  $line"
      if [[ "$line" =~ \ user\ +screenshot\ ([^\ ]+)$ ]]; then
        take_screenshot "${BASH_REMATCH[1]}"
      fi
    done
}

run_job() {
  local title=$1 printer=$2 script=$3
  shift 3
  heading "$title"
  run_qldemo --printer "$printer" --log \
    --script "$(windows_path "$bin/scripts/$script.jobscript")" "$@"
}

# As if enough other billboards had been shown since.
forget_history() {
  run_wine reg delete 'HKLM\Software\QuillonInkjet\JSW\Local\qlde\Settings\Controller\History' \
    /f >/dev/null
}

# Waits for an address: the shell starts its handler asynchronously.
show_web_addresses() {
  local expected=$1
  heading "Web addresses that the window opened"
  for _ in $(seq 50); do
    (($(wc -l <"$urls") >= expected)) && break
    sleep 0.1
  done
  tr -d '\r' <"$urls"
  if (($(wc -l <"$urls") < expected)); then
    echo "error: $expected addresses should have been opened" >&2
    return 1
  fi
}

# Shows the log of each job: how the rules thread chose and what the user did, without the columns of
# time and component and without the end of the job.
show_log() {
  keep_log
  heading "What the log says of each job"
  tr -d '\r' <"$results/qldeJSW.log" | awk '
    / Params:friendlyName=/ {
      document = $0
      sub(/.* jobname=/, "", document)
      sub(/ jobType=.*/, "", document)
      printf "Job %d: %s\n", ++job, document
    }
    /Controller::ProcessRules: (Rule result|ProjectId)|Should show the billboard/ ||
    /Controller::changeBillboard: Billboard id|BillboardView::billboardCallback: action/ {
      print "  " substr($0, match($0, /(Controller|BillboardView)::/), 110)
    }'
  echo "The complete log: $results/qldeJSW.log, $(wc -l <"$results/qldeJSW.log") lines; jswctl log FILE explains it."
}

show_screenshots() {
  heading "Screenshots"
  ls -1 "$results"/*.png
}

story_job() {
  run_job "Job 1: one page, ink enough - no rule applies, the welcome page stays" \
    SimulatedPrinter short-job --job note.txt --pages 1 --ink 90,80
  run_job "Job 2: little ink - the rules choose the offer; its link and the ink status" \
    SimulatedPrinter first-job --job report.pdf --pages 3 --ink 90,10
  run_job "Job 3: little ink again - the next billboard; Next leads back to the offer" \
    SimulatedPrinter second-job --job report.pdf --pages 3 --ink 90,9
  forget_history
  run_job "Job 4: behind a device client - the link's ink and part number are the device's own" \
    "Quillon Sim 2000" device-job --job photo.jpg --pages 2 --ink 40,5 \
    --device "$(windows_path "$bin/data/device.txt")"
  show_web_addresses 2
  show_log
  show_screenshots
}

story=${1:-job}
if (($# > 1)) || ! declare -F "story_$story" >/dev/null; then
  echo "usage: scripts/demo.sh [$(declare -F | sed -n 's/^declare -f story_//p' | paste -sd'|')]" >&2
  exit 2
fi
scripts/setup.sh
scripts/build.sh --progress release demonstration
stay_on "$first_processor"
start_wine demo
forget_everything
record_web_addresses
"story_$story"
