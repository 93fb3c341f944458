#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Shows the library at work: builds QuarnFC.dll and the host program qn for Windows and runs qn
# under Wine on real files. The pieces of the show are scripts/demo.d/*.sh, in order of name.
set -euo pipefail
source "$(dirname "$0")/lib.sh"

# What the pieces use:
#   $project  the project's folder, which is also the current folder
#   $scratch  an empty folder for the files a piece writes, relative to the current one
#   title TEXT...  a heading;  say TEXT...  a line for the reader
#   qn ARGUMENT...  shows the command line, runs qn, and shows its exit code unless it is 0

title() {
  if [ -t 1 ]; then printf '\n\033[1m# %s\033[0m\n' "$*"; else printf '\n# %s\n' "$*"; fi
}
say() { printf '\n%s\n' "$*"; }

# quoted ARGUMENT...: the arguments as one would type them.
quoted() {
  local argument
  for argument in "$@"; do
    case $argument in
      *[!A-Za-z0-9_.,:/=+-]* | '') printf " '%s'" "$argument" ;;
      *) printf ' %s' "$argument" ;;
    esac
  done
}

# qn writes text in the code page of the process, 936; the terminal here expects UTF-8.
qn() {
  local status=0
  printf '$ qn%s\n' "$(quoted "$@")"
  { "$project/scripts/run-wine.sh" "$project/build/windows/bin/qn.exe" "$@" 2>&1 </dev/null |
    tr -d '\r' | iconv -c -f GBK -t UTF-8; } || status=$?
  [ "$status" -eq 0 ] || printf '(exit code %d)\n' "$status"
}

cd "$project"
step "Checking what is installed"
scripts/setup.sh
step "Making the Wine prefix"
mkdir -p build/windows
scripts/run-wine.sh --prepare build/windows
step "Building QuarnFC.dll and qn.exe"
configure_preset windows
build_preset windows qn

scratch=build/demo
rm -rf "$scratch"
mkdir -p "$scratch"

title "A Windows host program that has loaded QuarnFC.dll"
qn --version
for piece in scripts/demo.d/*.sh; do
  [ -e "$piece" ] || continue
  # shellcheck source=/dev/null
  source "$piece"
done
step "Done"
