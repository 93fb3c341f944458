#!/usr/bin/env bash
# Runs a Windows program of the build under Wine with code page 936 and a Wine prefix of its own.
# Usage: run-wine.sh PROGRAM.exe [ARGUMENT...]
set -euo pipefail

program=$(readlink -f "$1")
shift
folder=$(dirname "$program")

# The prefix lives in the build folder of the preset, whatever folder the program is in.
build=$folder
while [ "$build" != / ] && [ ! -f "$build/CMakeCache.txt" ]; do build=$(dirname "$build"); done
if [ "$build" = / ]; then build=$folder; fi

export WINEPREFIX="${WINEPREFIX:-$build/wine}"
export WINEDEBUG="${WINEDEBUG:--all}"
export WINEDLLOVERRIDES="${WINEDLLOVERRIDES:-mscoree,mshtml=}"
export WINEPATH="$build/bin${WINEPATH:+;$WINEPATH}"
export LC_ALL=zh_CN.UTF-8
exec wine "$program" "$@" 2> >(grep -v 'wine32 is missing\|multiarch needs\|dpkg --add-architecture\|apt-get install wine32\|^wine32:i386\|execute "dpkg' >&2)
