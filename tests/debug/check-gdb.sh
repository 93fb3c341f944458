#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs a host under gdb, and looks at its core file afterwards: both times the printers must show
# what expected.txt says.
# Usage: check-gdb.sh HOST auto-load FOLDER   the printers are those that gdb loads with the library
#        check-gdb.sh HOST source FILE        the printers are in FILE
#        check-gdb.sh HOST                    gdb knows of them by itself
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
host=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LC_ALL=C.UTF-8

command -v gdb >/dev/null || { echo "skipped: gdb is not installed"; exit 77; }

options=()
case ${2:-} in
  auto-load) options=(-iex "set auto-load safe-path $3") ;;
  source) options=(-ex "source $3") ;;
esac

# session COMMAND...: what gdb prints for every expression of expected.txt after the commands.
session() {
  local command expression
  for command in "$@"; do printf '%s\n' "$command"; done >"$work/commands"
  while IFS= read -r expression; do
    printf 'printf "@%s: "\noutput %s\necho \\n\n' "$expression" "$expression"
  done < <(sed 's/: .*//' "$here/expected.txt") >>"$work/commands"
  printf 'gcore %s\n' "$work/core.new" >>"$work/commands"
  gdb --batch -nx -ex 'set width 0' -ex 'set print address off' "${options[@]}" \
    -x "$work/commands" "$host" ${core:+"$core"} >"$work/log" 2>&1 </dev/null || true
  sed -n 's/^@//p' "$work/log"
}

compare() {
  if ! diff "$here/expected.txt" - >"$work/difference"; then
    printf '%s: gdb shows something else than expected\n' "$1"
    cat "$work/difference" "$work/log"
    exit 1
  fi
  printf 'ok: %s\n' "$1"
}

core=
session 'break Stop' run up >"$work/live"
if grep -qi 'ptrace.*not permitted' "$work/log"; then
  echo "skipped: gdb may not trace programs here"
  exit 77
fi
compare "a live program" <"$work/live"
core=$work/core
mv "$work/core.new" "$core"
session 'frame function main' >"$work/dead"
compare "a core file" <"$work/dead"
