# shellcheck shell=bash
# Sourced by the scripts that run Windows programs: starts a separate Wine prefix below build/ and an X
# server if there is none, and stops both when the script ends.
#
#   source scripts/wine-env.sh
#   start_wine NAME        # prefix build/wine-NAME; of several, the last is in use

wine_server() {
  if command -v wineserver >/dev/null; then wineserver "$@"; else /usr/lib/wine/wineserver "$@"; fi
}

processors=$(sed -n 's/^Cpus_allowed_list:[[:space:]]*//p' /proc/self/status)
first_processor=${processors%%[-,]*} last_processor=${processors##*[-,]}

# Keeps the script, and what it starts from then on, on one processor: between two, every call of Wine's
# server waits for the other one to wake up, which takes longer than most calls.
stay_on() { # PROCESSOR
  taskset --pid --cpu-list "$1" $$ >/dev/null
}

started_prefixes=()
started_displays=()  # process ids

stop_wine() {
  local prefix
  for prefix in "${started_prefixes[@]}"; do
    WINEPREFIX=$prefix wine_server -k >/dev/null 2>&1 || true
    WINEPREFIX=$prefix wine_server -w >/dev/null 2>&1 || true
  done
  local display
  for display in "${started_displays[@]}"; do
    kill "$display" 2>/dev/null || true
    wait "$display" 2>/dev/null || true
  done
}

# Starts an X server on a free display number, for hidden windows.
start_display() {
  local number_file
  number_file=$(mktemp)
  Xvfb -displayfd 3 -screen 0 "${JSW_SCREEN:-1024x768}x24" -nolisten tcp 3>"$number_file" 2>/dev/null &
  JSW_XVFB_PID=$!
  started_displays+=("$JSW_XVFB_PID")
  for _ in $(seq 100); do
    [[ -s "$number_file" ]] && break
    sleep 0.1
  done
  if [[ ! -s "$number_file" ]]; then
    echo "error: the X server Xvfb did not start" >&2
    rm -f "$number_file"
    return 1
  fi
  DISPLAY=":$(tr -d '[:space:]' <"$number_file")"
  export DISPLAY
  rm -f "$number_file"
  # No keyboard input: otherwise every thread with a window reads a long table of key sequences.
  export XCOMPOSEFILE=/dev/null
}

# Our own display has no window manager, for which Wine would wait two seconds whenever a window
# closes. Unmanaged windows get their title bar from Wine, which needs a font in the prefix for the
# symbols on its buttons.
choose_window_style() {
  wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed \
    /d "$([[ -n "${JSW_XVFB_PID:-}" ]] && echo N || echo Y)" /f >/dev/null 2>&1
}

start_wine() {
  local name=$1
  export WINEPREFIX="$PWD/build/wine-$name" WINEARCH=win64 WINEDEBUG=-all
  export WINEDLLOVERRIDES="mscoree,mshtml="
  trap stop_wine EXIT
  trap 'exit 130' INT TERM
  # A server left by programs of another display would show windows there.
  if [[ -d "$WINEPREFIX" ]]; then
    wine_server -k >/dev/null 2>&1 || true
  fi
  started_prefixes+=("$WINEPREFIX")
  if [[ -z "${DISPLAY:-}" || -n "${JSW_OWN_DISPLAY:-}" ]]; then
    start_display
  fi
  local fresh=
  if [[ ! -f "$WINEPREFIX/.jsw-ready" ]]; then
    fresh=yes
    rm -rf "$WINEPREFIX"
    mkdir -p "$WINEPREFIX"
  fi
  wine_server -p >/dev/null 2>&1  # stays between programs, which then start at once
  if [[ -n "$fresh" ]]; then
    echo "Creating the Wine prefix build/wine-$name ..."
    wine wineboot -i >/dev/null 2>&1
    cp /usr/share/wine/fonts/marlett.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
    touch "$WINEPREFIX/.jsw-ready"
  fi
  choose_window_style
}
