# SPDX-License-Identifier: MIT
# shellcheck shell=bash
# Shell functions the scripts share; sourced, never run.
# After sourcing: $project is the project's folder, $logs the folder of the build logs.

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
logs="$project/build/logs"

# Every C++ object is kept for the next build where the compiler cache is installed.
if command -v ccache >/dev/null; then
  export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache
  # What it takes to keep objects that use precompiled headers.
  export CCACHE_SLOPPINESS="${CCACHE_SLOPPINESS:-pch_defines,time_macros}"
fi

# step TEXT...: says in a line what happens next.
step() { printf '== %s\n' "$*"; }

# die TEXT...: ends the script with a message.
die() {
  printf 'error: %s\n' "$*" >&2
  exit 1
}

# logged NAME COMMAND...: runs a command with its output in $logs/NAME.log. When it fails, the end
# of the log is shown and the result is the command's.
logged() {
  local log="$logs/$1.log" status=0
  shift
  mkdir -p "$logs"
  "$@" >"$log" 2>&1 </dev/null || status=$?
  if [ "$status" -ne 0 ]; then
    printf 'failed (%d): %s\n' "$status" "$*"
    tail -n 40 "$log"
    printf '(the whole log: %s)\n' "$log"
  fi
  return "$status"
}

# as_root COMMAND...: runs a command as root, through sudo when needed.
as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    die "this needs root or sudo: $*"
  fi
}

# configure_preset PRESET [ARGUMENT...]: a quiet CMake run.
configure_preset() { logged "configure-$1" cmake -S "$project" --preset "$@"; }

# Ninja's lines "[done/all] ..." as a line for every tenth of the way.
build_progress() {
  awk -F '[][/]' '
    /^\[[0-9]+\/[0-9]+\]/ && $3 >= 20 {
      tenth = int(10 * $2 / $3)
      if (tenth > shown) { printf "   built %d of %d\n", $2, $3; fflush(); shown = tenth }
    }'
}

# build_preset PRESET [TARGET...]: builds with a line of progress now and then.
build_preset() {
  local preset=$1 log="$logs/build-$1.log"
  shift
  mkdir -p "$logs"
  if ! NINJA_STATUS='[%f/%t] ' cmake --build "$project/build/$preset" ${1:+--target "$@"} 2>&1 \
    </dev/null | tee "$log" | build_progress; then
    printf 'failed: the build of %s\n' "$preset"
    grep -A 12 -E '^FAILED:|error:' "$log" | head -n 60
    printf '(the whole log: %s)\n' "$log"
    return 1
  fi
}
