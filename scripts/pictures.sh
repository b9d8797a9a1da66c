#!/usr/bin/env bash
# Takes the pictures of the README and the docs: prints jobs with the demonstration on a separate
# screen, in every look of the windows. The pictures go to docs/; check each of them.
#
#   scripts/pictures.sh [PICTURE...]    all, or those with these names
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/wine-env.sh

readonly bin=build/release/bin
readonly work=build/pictures
language=en_US.UTF-8

windows_path() {
  local path="Z:$PWD/$1"
  echo "${path//\//\\}"
}

reg_add() { # KEY VALUE TYPE DATA
  wine reg add "$1" /v "$2" /t "$3" /d "$4" /f >/dev/null 2>&1
}

# A font of the title bar and the messages, as a registry value.
font_of_windows() {
  local name=$1 hex='f4ffffff' i
  hex+='000000000000000000000000bc020000000000000000000000'
  hex=${hex:0:56}
  for ((i = 0; i < ${#name}; i++)); do
    hex+=$(printf '%02x00' "'${name:i:1}")
  done
  printf '%-184s' "$hex" | tr ' ' 0
}

# The plain frame and title bar of a current desktop, in the window's colours.
look() { # GROUND TEXT LIGHT
  # Removes the system theme's own ones.
  local colours='HKCU\Software\Wine\Temporary System Parameters\Control Panel\Colors' name
  for name in ActiveTitle GradientActiveTitle InactiveTitle GradientInactiveTitle ActiveBorder \
    InactiveBorder ButtonFace ButtonHilight ButtonShadow ButtonDkShadow ButtonLight WindowFrame; do
    reg_add "$colours" "$name" REG_SZ "$1"
  done
  for name in TitleText InactiveTitleText ButtonText; do
    reg_add "$colours" "$name" REG_SZ "$2"
  done
  reg_add 'HKCU\Software\Microsoft\Windows\CurrentVersion\Themes\Personalize' AppsUseLightTheme \
    REG_DWORD "$3"
}

light() { outline='#b8bec6' && look '243 244 246' '27 31 36' 1; }
dark() { outline='#4a4f57' && look '32 33 36' '240 242 245' 0; }

scale() { # PER CENT
  reg_add 'HKCU\Control Panel\Desktop' LogPixels REG_DWORD $(($1 * 96 / 100))
}

# A place away from the mouse, which is in the middle of the screen.
forget_jobs() {
  local store='HKLM\Software\QuillonInkjet\JSW\Local\qlde\Settings'
  wine reg delete "$store\\Controller\\History" /f >/dev/null 2>&1 || true
  wine reg delete "$store\\Gui" /f >/dev/null 2>&1 || true
  reg_add "$store\\Gui" WindowX REG_SZ 40
  reg_add "$store\\Gui" WindowY REG_SZ 40
}

# Runs a job with the steps on standard input and captures the window with this title on request.
picture() { # NAME TITLE OPTIONS...
  local name=$1 title=$2 line
  shift 2
  cat >"$work/$name.jobscript"
  forget_jobs
  rm -f "$work/$name.png"
  LC_ALL=$language timeout 120 wine "$bin/qldemo.exe" --screenshots "$(windows_path "$work")" \
    --script "$(windows_path "$work/$name.jobscript")" "$@" </dev/null 2>&1 |
    tee "$work/$name.log" |
    while IFS= read -r line; do
      if [[ "${line%$'\r'}" =~ \ user\ +screenshot\  ]]; then
        import -window "$title" "png:$work/$name.part" && mv "$work/$name.part" "$work/$name.png"
      fi
    done || {
    cat "$work/$name.log"
    echo "error: the job of the picture $name failed" >&2
    return 1
  }
  # The outline that a desktop would draw around a window.
  convert "$work/$name.png" -bordercolor "$outline" -border 1 -strip "docs/$name.png"
  identify -format '%f: %w x %h\n' "docs/$name.png"
}

# The job window while the last page but one is being printed.
window_picture() { # NAME TITLE OPTIONS...
  picture "$@" <<END
at 0.2 page 2
at 0.8 click window
at 3.5 screenshot $1
END
}

take_job_window() {
  window_picture job-window "Printing report.pdf" --job report.pdf --pages 3 --ink 90,10
}

take_job_window_dark() {
  dark
  window_picture job-window-dark "Printing report.pdf" --job report.pdf --pages 3 --ink 90,10
}

take_job_window_welcome() {
  picture job-window-welcome "Printing letter.docx" --printer "Office printer" --job letter.docx \
    --pages 1 --copies 2 --ink 90,80,75,60,85 <<END
at 0.2 page 1 1
at 0.8 click window
at 3.5 screenshot job-window-welcome
END
}

take_ink_status() {
  picture ink-status "Printing photo.jpg" --printer "Quillon 2000 in the hall" --job photo.jpg \
    --pages 4 --ink 90,15,? <<END
at 0.2 page 3
at 0.8 click window
at 2.0 click ink
at 3.5 screenshot ink-status
END
}

take_cancel_question() {
  picture cancel-question "Printing report.pdf" --job report.pdf --pages 12 --ink 90,80 <<END
at 0.2 page 5
at 0.8 click window
at 2.0 click cancel
at 3.5 screenshot cancel-question
END
}

take_job_window_german() {
  language=de_DE.UTF-8
  window_picture job-window-german "Bericht.pdf wird gedruckt" --job Bericht.pdf --pages 3 \
    --copies 2 --ink 90,10
}

take_job_window_200() {
  scale 200
  window_picture job-window-200 "Printing report.pdf" --job report.pdf --pages 3 --ink 90,10
}

prompt_picture() { # NAME TITLE
  picture "$1" "$2" --printer "Office printer" --job report.pdf --pages 6 --ink 90,80 <<END
at 0.2 page 1
at 0.8 prompt 1
at 1.8 post 5
at 3.5 screenshot $1
at 4.0 answer ok
END
}

take_prompt() {
  prompt_picture prompt "Printing: your help is needed"
}

take_prompt_dark() {
  dark
  prompt_picture prompt-dark "Printing: your help is needed"
}

prepare() {
  mkdir -p "$work"
  local metrics='HKCU\Control Panel\Desktop\WindowMetrics' name
  for name in CaptionFont MessageFont; do
    reg_add "$metrics" "$name" REG_BINARY "$(font_of_windows 'Open Sans')"
  done
  # Focus and access keys are invisible before the keyboard is used.
  reg_add 'HKCU\Control Panel\Desktop' UserPreferencesMask REG_BINARY 9012038010000000
  reg_add 'HKCU\Control Panel\Desktop' FontSmoothing REG_SZ 2
  reg_add 'HKCU\Control Panel\Desktop' FontSmoothingType REG_DWORD 1
  wine "$bin/qldemo.exe" --install >/dev/null 2>&1
}

mapfile -t all < <(declare -F | sed -n 's/^declare -f take_//p')
pictures=("${all[@]}")
(($# > 0)) && pictures=("${@//-/_}")
for name in "${pictures[@]}"; do
  declare -F "take_$name" >/dev/null || {
    echo "usage: scripts/pictures.sh [${all[*]//_/-}]" >&2
    exit 2
  }
done
scripts/setup.sh
scripts/build.sh release jswv jswo jsw bcat reng qldemo
JSW_OWN_DISPLAY=yes
JSW_SCREEN=2200x1600
start_wine pictures
prepare
for name in "${pictures[@]}"; do
  light
  scale 100
  language=en_US.UTF-8
  "take_$name"
done
