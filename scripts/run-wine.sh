#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs a Windows program of the build under Wine, with code page 936 and a Wine prefix of its own
# in the build folder. The first run makes the prefix (seconds); other runs meanwhile wait for it.
# Usage: run-wine.sh PROGRAM.exe [ARGUMENT...]
#        run-wine.sh --prepare BUILD_FOLDER      only makes the prefix
set -euo pipefail

# The nearest folder above FILE that CMake configured; FILE's own folder when there is none.
build_folder() {
  local folder
  folder=$(dirname "$1")
  while [ "$folder" != / ] && [ ! -f "$folder/CMakeCache.txt" ]; do
    folder=$(dirname "$folder")
  done
  if [ "$folder" = / ]; then dirname "$1"; else printf '%s\n' "$folder"; fi
}

make_prefix() {
  local ready="$WINEPREFIX/.ready"
  [ -e "$ready" ] && return
  mkdir -p "$WINEPREFIX"
  (
    flock 9
    [ -e "$ready" ] && exit
    # Without the lock: the server that Wine starts lives on for a while.
    wineboot --init >"$WINEPREFIX/boot.log" 2>&1 </dev/null 9>&- || {
      printf 'error: Wine could not make its prefix, see %s\n' "$WINEPREFIX/boot.log" >&2
      exit 1
    }
    touch "$ready"
  ) 9>"$WINEPREFIX.lock"
}

if ! command -v wine >/dev/null; then
  printf 'error: Wine is not installed; scripts/setup.sh installs it\n' >&2
  exit 127
fi

if [ "$1" = --prepare ]; then
  command=(true)
  build=$(readlink -f "$2")
else
  program=$(readlink -f "$1")
  command=(wine "$program" "${@:2}")
  build=$(build_folder "$program")
fi

# Only "-all" keeps Debian's wine from printing a hint about 32-bit programs at every start.
export WINEDEBUG="${WINEDEBUG:--all}"
export WINEPREFIX="${WINEPREFIX:-$build/wine}"
# No .NET, no HTML engine, no entries in the desktop's menus.
export WINEDLLOVERRIDES="${WINEDLLOVERRIDES:-mscoree,mshtml,winemenubuilder.exe=}"
export WINEPATH="$build/bin${WINEPATH:+;$WINEPATH}"
# The locale decides the ANSI and OEM code page of the process: 936.
export LC_ALL=zh_CN.UTF-8

make_prefix
exec "${command[@]}"
