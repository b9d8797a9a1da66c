#!/usr/bin/env bash
# Builds with a preset:
#
#   scripts/build.sh [PRESET [TARGET...]]              default: release, everything
#   scripts/build.sh --progress [PRESET [TARGET...]]   shows the progress in one line, and the
#                                                      compiler's output only on failure
set -euo pipefail
cd "$(dirname "$0")/.."
progress=
if [[ "${1:-}" == --progress ]]; then
  progress=yes
  shift
fi
preset=${1:-release}
targets=("${@:2}")

build() {
  cmake --build --preset "$preset" ${targets[0]:+--target "${targets[@]}"}
}

# Turns Ninja's steps into one line, which is overwritten on a terminal and otherwise ends when all is
# done.
show_progress() {
  local line steps=0
  printf 'Building ...'
  while IFS= read -r line; do
    [[ "$line" =~ ^\[([0-9]+)/([0-9]+)\] ]] || continue
    steps=${BASH_REMATCH[1]}
    [[ -t 1 ]] && printf '\rBuilding: step %s of %s' "$steps" "${BASH_REMATCH[2]}"
  done
  [[ -t 1 ]] && printf '\rBuilding ...\e[K'
  printf ' %s steps\n' "$steps"
}

mkdir -p build
cmake --preset "$preset" >build/configure.log 2>&1 || {
  cat build/configure.log
  exit 1
}
if [[ -z "$progress" ]]; then
  build
else
  log=build/$preset.log
  build 2>&1 | tee "$log" | show_progress || {
    cat "$log"
    exit 1
  }
fi
