# shellcheck shell=bash
# Shell functions the scripts share; sourced, never run.
# After sourcing: $project is the project's folder, $logs the folder of the build logs.

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
logs="$project/build/logs"

# Every C++ object is kept for the next build where the compiler cache is installed.
if command -v ccache >/dev/null; then
  export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache
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

# configure_preset PRESET and build_preset PRESET [TARGET...]: quiet CMake runs.
configure_preset() { logged "configure-$1" cmake -S "$project" --preset "$1"; }

build_preset() {
  local preset=$1
  shift
  logged "build-$preset" cmake --build "$project/build/$preset" ${1:+--target "$@"}
}
