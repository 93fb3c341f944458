#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Lets a Windows host crash inside the library that is installed in a folder, and resolves the place in
# the dump it leaves to function, file and line, as the documentation says.
# Usage: check-dump.sh windows FOLDER
#        check-dump.sh windows-msvc FOLDER BUILD_FOLDER    as check-prefix.sh
set -euo pipefail
source "$(dirname "$0")/lib.sh"

target=$1
prefix=$(cd "$2" && pwd)
# shellcheck disable=SC2034 # lib.sh uses it
runtime_build=${3:-}
llvm=/usr/lib/llvm-19/bin
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LC_ALL=C

[ -x "$llvm/obj2yaml" ] || { echo "skipped: nothing here reads minidumps" && exit 0; }

# The dump stands in the folder log beside the library, here a copy beside the host.
leave_dump() {
  configure "$target" "$here/crashing" "$work/build" \
    "-DQuarnFC_DIR=$(dirname "$(find "$prefix" -name QuarnFCConfig.cmake)")"
  quiet cmake --build "$work/build"
  cp "$prefix"/bin/QuarnFC.{pdb,dll.debug} "$work/build" 2>/dev/null || true
  "$source/scripts/run-wine.sh" "$work/build/crashing_host.exe" >/dev/null 2>&1 </dev/null || true
  "$llvm/obj2yaml" "$work"/build/log/Crashing*.dmp >"$work/dump"
}

# The offset of the place of the crash from where the library was loaded.
crash_offset() {
  local base place
  base=$(awk '/Base of Image:/ { base = $NF } /Module Name:.*\\QuarnFC.dll/ { print base }' "$work/dump")
  place=$(awk '/Exception Address:/ { print $NF }' "$work/dump")
  [ $((place)) -ge $((base)) ] || fail "the crash at $place is not in the library at $base"
  printf '0x%x\n' $((place - base))
}

resolve() {
  local base
  if [ "$target" = windows-msvc ]; then
    "$llvm/llvm-symbolizer" --relative-address -p --obj="$work/build/QuarnFC.dll" "$1"
  else
    base=$(x86_64-w64-mingw32-objdump -p "$work/build/QuarnFC.dll" | awk '$1 == "ImageBase" { print $2 }')
    x86_64-w64-mingw32-addr2line -C -f -i -p -e "$work/build/QuarnFC.dll.debug" \
      "$(printf '0x%x' $((16#$base + $1)))"
  fi
}

leave_dump
offset=$(crash_offset)
words=$(resolve "$offset")
[[ $words == *" at /usr/src/quarnfc-"*/codec/crc64*:[1-9]* ]] || fail "$offset is: $words"
echo "ok: the dump of a crash"
