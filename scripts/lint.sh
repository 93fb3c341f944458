#!/usr/bin/env bash
# Runs clang-tidy with the project's checks over the sources that the native build compiles.
# Usage: lint.sh [FILE...]
set -euo pipefail
source "$(dirname "$0")/lib.sh"

command -v clang-tidy >/dev/null || die "clang-tidy is not installed (Debian: clang-tidy)"
configure_preset linux
cd "$project"
if [ $# -eq 0 ]; then
  mapfile -t files < <(sed -n 's/^ *"file": "\(.*\)",\{0,1\}$/\1/p' build/linux/compile_commands.json |
    grep -F "$project/" | grep -v "$project/build/" | LC_ALL=C sort -u)
  set -- "${files[@]}"
fi
printf '%s\0' "$@" |
  xargs -0 -n 4 -P "$(nproc)" clang-tidy -p build/linux --quiet \
    --extra-arg=-Wno-ignored-optimization-argument
