#!/usr/bin/env bash
# Installs the missing packages for building and demonstrating the library. --tests adds those for the
# tests, with a browser only if CI is set: otherwise the tests use an installed one. --browser adds the
# browser, --coverage the coverage tools, --checks those for format, tidy and the fuzzers.
set -euo pipefail

packages=(
  g++-mingw-w64-x86-64-posix cmake ninja-build  # the build
  llvm                                          # the import library for Visual Studio's linker
  googletest                                    # tests
  libspdlog-dev python3                         # benchmarks: what to compare with, and their picture
  libcli11-dev nlohmann-json3-dev               # command lines and JSON of tools and samples
  wine wine64                                   # running Windows programs
  xvfb xauth imagemagick                        # windows and their screenshots
  fonts-dejavu-core fonts-open-sans fonts-wine  # what they are written in
)
if [[ "${1:-}" == --browser || ("${1:-}" == --tests && -n "${CI:-}") ]]; then
  packages+=(chromium)
fi
if [[ "${1:-}" == --tests || "${1:-}" == --coverage ]]; then
  packages+=(clang lld)  # what the kit's test takes for Visual Studio
fi
if [[ "${1:-}" == --coverage ]]; then
  packages+=(gcovr)
elif [[ "${1:-}" == --checks ]]; then
  packages+=(clang lld clang-format clang-tidy libclang-rt-14-dev)  # for check.sh and fuzz.sh
fi

missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' ||
    missing+=("$package")
done
if ((${#missing[@]} == 0)); then
  exit 0
fi

echo "Installing: ${missing[*]}"
as_root=()
if ((EUID != 0)); then
  command -v sudo >/dev/null || {
    echo "error: ${missing[*]} must be installed; run this as root or install sudo" >&2
    exit 1
  }
  as_root=(sudo)
fi
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
  "${missing[@]}" >/dev/null
