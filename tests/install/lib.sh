# SPDX-License-Identifier: MIT
# shellcheck shell=bash
# What the tests of installed libraries share; sourced, never run.
# After sourcing: $source is the project's folder, $here the folder of these tests.

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
source=$(cd "$here/../.." && pwd)

fail() {
  printf 'failed: %s\n' "$*" >&2
  exit 1
}

# quiet COMMAND...: runs a command and shows its output only when it fails.
quiet() {
  local log
  log=$(mktemp)
  "$@" >"$log" 2>&1 </dev/null || {
    cat "$log"
    rm -f "$log"
    fail "$*"
  }
  rm -f "$log"
}

# forgets_paths OPTION FOLDER: nothing in the folder knows where it was built. The option is grep's:
# -I looks at text files only, -a at binaries as well.
forgets_paths() {
  local hits
  hits=$(grep -rlF "$1" -e "$source" "$2" || true)
  [ -z "$hits" ] || fail "the path of the build is in: $hits"
}

# configure TARGET SOURCE BUILD [OPTION...]: an outside project for windows, windows-msvc or linux.
# For windows-msvc $runtime_build is the folder of a build whose run-time part stands in for that of
# Visual C++.
configure() {
  local toolchain=()
  case $1 in
    windows) toolchain=("-DCMAKE_TOOLCHAIN_FILE=$source/cmake/toolchain-mingw-w64.cmake") ;;
    windows-msvc)
      toolchain=("-DCMAKE_TOOLCHAIN_FILE=$here/toolchain-visual-cpp.cmake"
        "-DQUARNFC_RUNTIME_BUILD=${runtime_build:?}")
      ;;
  esac
  quiet cmake -S "$2" -B "$3" -G Ninja -DCMAKE_BUILD_TYPE=Debug "${toolchain[@]}" "${@:4}"
}

# run TARGET PROGRAM: a host's program must start with nothing but what stands beside it, and end
# with "ok".
run() {
  local program=$2 runner=() output
  [[ $1 != windows* ]] || { runner=("$source/scripts/run-wine.sh") program=$2.exe; }
  output=$(cd / && "${runner[@]}" "$program" 2>&1 </dev/null | tr -d '\r') ||
    fail "$(basename "$program"): $output"
  [ "$output" = ok ] || fail "$(basename "$program") says: $output"
  printf 'ok: %s\n' "$(basename "$program")"
}
