#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Unpacks the packages of a folder, each kind into an empty folder, and builds and runs hosts
# against what they hold.
# Usage: check-packages.sh windows|windows-msvc|linux FOLDER
set -euo pipefail
source "$(dirname "$0")/lib.sh"

target=$1
packages=$(cd "$2" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
build="$source/build/package-$target"
llvm=/usr/lib/llvm-19/bin
[[ $target != windows* ]] || export WINEPREFIX="${WINEPREFIX:-$build/wine}"

# one PATTERN: the only package of that name.
one() {
  local found
  mapfile -t found < <(find "$packages" -name "$1")
  [ "${#found[@]}" -eq 1 ] || fail "not one package: $1"
  printf '%s\n' "${found[0]}"
}

# The sums hold, and every file of a package is in its list.
check_lists() {
  local sum
  for sum in "$packages"/*.sha256; do
    (cd "$packages" && quiet sha256sum --check --strict "$sum")
    grep -q '^FileName: ' "${sum%.sha256}.spdx" || fail "no file is listed in ${sum%.sha256}.spdx"
  done
}

# check_debug BINARY: its debug information is beside it and is its own.
check_debug() {
  local objdump=objdump
  [ "$target" != windows ] || objdump=x86_64-w64-mingw32-objdump
  [ -f "$1.debug" ] || fail "no debug information beside $1"
  "$objdump" -h "$1" | grep -q '\.gnu_debuglink' || fail "no link to the debug information in $1"
  ! "$objdump" -h "$1" | grep -q '\.debug_info' || fail "$1 still has its debug information"
}

# check_printers FOLDER: gdb shows the library's classes, and a crash record resolves.
check_printers() {
  quiet g++ -g -O0 -std=c++17 -fshort-wchar -Wno-delete-non-virtual-dtor "-I$1/include" \
    "$here/../debug/debug_host.cpp" -o "$work/debug_host" "$1/lib/libQuarnFC.so" "-Wl,-rpath,$1/lib"
  "$here/../debug/check-gdb.sh" "$work/debug_host" auto-load "$1" || [ $? -eq 77 ]
  "$here/../debug/check-record.sh" "$1"
}

# An address of the DLL becomes a line of its source.
check_addresses() {
  local base start words
  base=$(x86_64-w64-mingw32-objdump -p "$1" | awk '$1 == "ImageBase" { print $2 }')
  start=$(x86_64-w64-mingw32-nm "$1.debug" | awk '$3 == "qnGetVersion" { print $1 }')
  [ $((16#$start)) -gt $((16#$base)) ] || fail "qnGetVersion is not in $1"
  words=$(x86_64-w64-mingw32-addr2line -C -f -p -e "$1.debug" "0x$start")
  [[ $words == *core/diagnostics/version.cpp:* ]] || fail "qnGetVersion is at: $words"
  echo "ok: an address of the DLL"
}

# unpack_zip KIND: the ZIP of that kind with its debug information into $work/zip.
unpack_zip() {
  local archive debug
  archive=$(one "quarnfc-*-windows-x64-$1.zip")
  debug=$(one "quarnfc-*-windows-x64-$1-debug.zip")
  unzip -q "$archive" -d "$work/zip"
  unzip -q "$debug" -d "$work/zip"
  forgets_paths -a "$work/zip"
}

# check_pdb BINARY: the debug information beside it is its own, and found there.
check_pdb() {
  local pdb=${1%.*}.pdb said guid
  said=$("$llvm/llvm-readobj" --coff-debug-directory "$1")
  guid=$(sed -n 's/^ *PDBGUID: //p' <<<"$said")
  [ -n "$guid" ] || fail "$1 names no debug information"
  "$llvm/llvm-pdbutil" dump --summary "$pdb" | grep -F "GUID: $guid" >/dev/null ||
    fail "the debug information beside $1 is another one's"
  grep -qx " *PDBFileName: ${pdb##*/}" <<<"$said" || fail "$1 looks elsewhere for ${pdb##*/}"
  printf 'ok: debug information of %s\n' "${1##*/}"
}

# The lines of the sources, by the names that debuggers are told, are those of the DLL's addresses.
check_msvc_addresses() {
  local section address place
  section=$("$llvm/llvm-readobj" --sections "$1" |
    awk '$1 == "Name:" { name = $2 } $1 == "VirtualAddress:" && name == ".text" { print $2 }')
  address=$("$llvm/llvm-readobj" --coff-exports "$1" |
    awk '$1 == "Name:" { name = $2 } $1 == "RVA:" && name == "qnGetVersion" { print $2 }')
  place=$(printf '%08X' $((address - section)))
  "$llvm/llvm-pdbutil" dump -l "${1%.*}.pdb" |
    grep -E -A 2 '^/usr/src/quarnfc-[0-9.]+/core/diagnostics/version\.cpp \(MD5' |
    grep -iF " $place " >/dev/null || fail "qnGetVersion at $place is not in version.cpp"
  echo "ok: an address of the DLL"
}

check_msvc_zip() {
  local bin
  unpack_zip msvc
  bin=$(echo "$work"/zip/*/bin)
  "$here/check-prefix.sh" windows-msvc "$bin/.." "$build"
  "$here/../msvc_abi/check-module.sh" "$llvm/llvm-readobj" "$bin/QuarnFC.dll"
  check_pdb "$bin/QuarnFC.dll"
  check_pdb "$bin/qn.exe"
  check_msvc_addresses "$bin/QuarnFC.dll"
}

check_zip() {
  unpack_zip mingw
  "$here/check-prefix.sh" windows "$work/zip"/*/
  check_debug "$work"/zip/*/bin/QuarnFC.dll
  check_addresses "$work"/zip/*/bin/QuarnFC.dll
}

check_tgz() {
  mkdir "$work/tgz"
  tar -xzf "$(one 'quarnfc-*-linux-x64.tar.gz')" -C "$work/tgz"
  tar -xzf "$(one 'quarnfc-*-linux-x64-debug.tar.gz')" -C "$work/tgz"
  forgets_paths -a "$work/tgz"
  "$here/check-prefix.sh" linux "$work/tgz"/*/
  check_debug "$(readlink -f "$work"/tgz/*/lib/libQuarnFC.so)"
  check_printers "$(readlink -f "$work"/tgz/*/)"
}

# depends_on DEPENDENCIES SONAME: a package that has the library is among the dependencies.
depends_on() {
  local owner
  for owner in $(dpkg -S "*/$2" | sed 's/:.*//'); do
    [[ ", $1" != *", $owner ("* ]] || return 0
  done
  return 1
}

# The library's package asks for a package of every library that it loads, libcurl with its first
# request.
check_dependencies() {
  local depends name names
  depends=$(dpkg-deb -f "$(one 'libquarnfc1_*.deb')" Depends)
  mapfile -t names < <(objdump -p "$1" | awk '$1 == "NEEDED" { print $2 }')
  names+=(libcurl.so.4)
  for name in "${names[@]}"; do
    depends_on "$depends" "$name" || fail "$name comes with none of: $depends"
  done
  printf 'ok: the package asks for the %d libraries it needs\n' "${#names[@]}"
}

check_deb() {
  local package
  for package in "$packages"/*.deb; do dpkg-deb -x "$package" "$work/deb"; done
  forgets_paths -a "$work/deb"
  "$here/check-prefix.sh" linux "$work/deb/usr"
  check_debug "$(readlink -f "$work/deb/usr/lib/libQuarnFC.so")"
  check_dependencies "$(readlink -f "$work/deb/usr/lib/libQuarnFC.so")"
}

# The library as part of a host's own build: what it needs to start is beside the program.
check_subdirectory() {
  configure "$target" "$here/subdirectory" "$work/subdirectory" "-DQUARNFC_SOURCE=$source"
  quiet cmake --build "$work/subdirectory"
  run "$target" "$work/subdirectory/host"
}

check_lists
case $target in
  windows-msvc) check_msvc_zip ;;
  windows)
    check_subdirectory
    check_zip
    ;;
  linux)
    check_subdirectory
    check_tgz
    check_deb
    ;;
esac
