# shellcheck shell=bash
# Sourced by scripts/demo.sh: an update, and a prompt in the middle of a job.

readonly settings='HKLM\Software\QuillonInkjet\JSW\Local\qlde\Settings'

# A separate folder, because an update adds modules to it.
install_program() {
  local host=$results/host file
  mkdir -p "$host"
  for file in qldemo.exe qlupdater.exe jsw.dll jswv.dll bcat.dll reng.dll jswo.dll qldejsw.loc data scripts; do
    cp -r "$bin/$file" "$host/"
  done
  bin=$host
  rm -rf "$WINEPREFIX/drive_c/ProgramData/Job Status"
}

# What the updater would download: new modules, a version file and a new welcome page.
offer_updates() {
  local updates=$bin/updates
  mkdir -p "$updates"
  cp "$bin/bcat.dll" "$updates/catalog.dll"
  cp "$bin/reng.dll" "$updates/rules.dll"
  cp "$bin/jswv.dll" "$updates/view.dll"
  echo "2" >"$updates/version.txt"
  cp -r "$bin/data" "$updates/data"
  sed -i -e 's/^title = .*/title = Welcome - now with the latest news/' -e 's/^theme = .*/theme = green/' \
    "$updates/data/Scripts/welcome.jbb"
}

pretend_last_check() {
  run_wine reg add "$settings\\Updater" /v DateLastCheckedForUpdates \
    /d "$(date -d "$1 days ago" '+%-m/%-d/%Y')" /f >/dev/null
  echo "last check for updates: $(date -d "$1 days ago" '+%-m/%-d/%Y'), today is $(date '+%-m/%-d/%Y')"
}

# The library does not wait for the updater; this script does.
show_updater_record() {
  local record=$bin/qlupdater.log
  for _ in $(seq 100); do
    grep -q '^ended' "$record" 2>/dev/null && break
    sleep 0.1
  done
  if ! grep -q '^ended' "$record" 2>/dev/null; then
    echo "error: no updater has run" >&2
    return 1
  fi
  echo "The updater's own record:"
  tr -d '\r' <"$record" | sed 's/^/  /'
  rm -f "$record"
}

expect_no_updater() {
  sleep 1
  if [[ -e "$bin/qlupdater.log" ]]; then
    echo "error: the updater has run again" >&2
    return 1
  fi
  echo "No updater was started: the last check is too recent."
}

# The relevant lines of the last job.
show_job_log() {
  echo "From the log:"
  # Without the columns of time and component.
  if ! tr -d '\r' <"$(log_file)" | cut -c51-200 | grep -E "$1" | sed 's/^ */  /'; then
    echo "error: the log says nothing of it" >&2
    return 1
  fi
  keep_log
}

show_modules_in_use() {
  echo "Modules in use:"
  run_wine reg query "$settings\\Controller" | tr -d '\r' | grep -E '(Catalog|RulesEngine|View) ' |
    sed 's/^ */  /'
}

update_job() {
  heading "$1"
  shift
  run_qldemo --printer SimulatedPrinter --log --job note.txt --pages 1 --ink 90,80 "$@"
}

readonly check_lines='^ *AppUpdatesController::(checkForUpdates|isItTime).*[:)] [A-Z]'
readonly post_update_lines='performPostUpdateChangesIfRequired\(\) [A-Z]|Loading .*DLL'

# The version of Windows that qldemo sees.
choose_windows() {
  run_wine reg add 'HKCU\Software\Wine\AppDefaults\qldemo.exe' /v Version /d "$1" /f >/dev/null
}

story_updates() {
  choose_windows win7
  install_program
  offer_updates
  run_qldemo --install
  pretend_last_check 30

  update_job "Job 1: the last check is 30 days ago; the updater is started at the job's end"
  show_job_log "$check_lines"
  show_updater_record

  update_job "Job 2: switches to the new modules and data" \
    --script "$(windows_path "$bin/scripts/updated.jobscript")"
  expect_no_updater
  show_job_log "$post_update_lines"
  show_modules_in_use

  update_job "Job 3: nothing is left to update"
  show_job_log "$post_update_lines"

  heading "The same check on Windows XP, where the updater runs as the user at the console"
  pretend_last_check 31
  choose_windows winxp64
  update_job "Job 4: on Windows XP"
  choose_windows win7
  show_job_log "$check_lines"
  show_updater_record

  run_job "Job 5: the driver asks the user in the middle of the job" SimulatedPrinter prompt --pages 3
  run_job "Job 6: the driver ends the job from inside its prompt, and prints once more" \
    SimulatedPrinter end-in-prompt --pages 2 --jobs 2
  keep_log
  show_screenshots
}
