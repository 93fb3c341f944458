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

# unpack PACKAGE FOLDER
unpack() {
  mkdir -p "$2"
  case $1 in
    *.zip) unzip -q "$1" -d "$2" ;;
    *.tar.gz) tar -xzf "$1" -C "$2" ;;
    *.deb) dpkg-deb -x "$1" "$2" ;;
  esac
}

# check_list PACKAGE: its list names every file in it, with the right sum, and nothing else.
check_list() {
  local content="$work/listed/${1##*/}"
  unpack "$1" "$content"
  awk '/^FileName: / { name = substr($0, 11) }
       /^FileChecksum: SHA256: / { print $3 "  " name }' "$1.spdx" >"$work/sums"
  (cd "$content" && quiet sha256sum --check --strict "$work/sums")
  quiet diff <(cd "$content" && find . -type f | sort) <(sed 's/^[^ ]*  //' "$work/sums" | sort)
}

# The sums hold, and so do the lists of contents.
check_lists() {
  local sum count=0
  for sum in "$packages"/*.sha256; do
    (cd "$packages" && quiet sha256sum --check --strict "$sum")
    check_list "${sum%.sha256}"
    count=$((count + 1))
  done
  [ "$count" -gt 0 ] || fail "there are no packages in $packages"
  printf 'ok: sums and lists of %d packages\n' "$count"
}

# check_debug BINARY FILE: the file is its debug information.
check_debug() {
  local objdump=objdump
  [ "$target" != windows ] || objdump=x86_64-w64-mingw32-objdump
  "$objdump" -h "$2" | grep '\.debug_info' >/dev/null || fail "no debug information in $2"
  "$objdump" -h "$1" | grep '\.gnu_debuglink' >/dev/null || fail "no link to the debug information in $1"
  ! "$objdump" -h "$1" | grep '\.debug_info' >/dev/null || fail "$1 still has its debug information"
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

# check_exports DEF RECORD: the DLL that is released exports what the record names, but for the type
# information of pointers, which depends on what the optimiser has seen.
check_exports() {
  quiet diff <(awk 'exports { print $1 } $1 == "EXPORTS" { exports = 1 }' "$1" | grep -v '^_ZTIP' |
    LC_ALL=C sort) \
    <(tr -d '\r' <"$here/../module/$2" | grep -v '^_ZTIP' | LC_ALL=C sort)
  echo "ok: exports"
}

# check_def FOLDER: hosts link an import library that is made of the module-definition file.
check_def() {
  mkdir "$work/by_def"
  x86_64-w64-mingw32-dlltool -D QuarnFC.dll -d "$1/lib/QuarnFC.def" -l "$work/by_def/libQuarnFC.a"
  quiet x86_64-w64-mingw32-g++-posix -std=c++17 "-I$1/include" "$here/outside/host.cpp" \
    -o "$work/by_def/host_by_def.exe" "-L$work/by_def" -lQuarnFC
  cp "$1"/bin/*.dll "$work/by_def"
  run windows "$work/by_def/host_by_def"
}

# unpack_zip KIND: the ZIP of that kind with its debug information into $work/zip.
unpack_zip() {
  local archive debug
  archive=$(one "quarnfc-*-windows-x64-$1.zip")
  debug=$(one "quarnfc-*-windows-x64-$1-debug.zip")
  unpack "$archive" "$work/zip"
  unpack "$debug" "$work/zip"
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

# An address of the DLL becomes a line of its source, by the name that debuggers are told.
check_msvc_addresses() {
  local address words
  address=$("$llvm/llvm-readobj" --coff-exports "$1" |
    awk '$1 == "Name:" { name = $2 } $1 == "RVA:" && name == "qnGetVersion" { print $2 }')
  words=$("$llvm/llvm-symbolizer" --relative-address -p --obj="$1" "$address")
  [[ $words == "qnGetVersion at /usr/src/quarnfc-"*/core/diagnostics/version.cpp:[1-9]* ]] ||
    fail "qnGetVersion at $address is: $words"
  echo "ok: an address of the DLL"
}

# check_msvc_def FOLDER: the module-definition file gives the import library that is beside it.
check_msvc_def() {
  "$llvm/llvm-lib" "/def:$1/lib/QuarnFC.def" /machine:x64 "/out:$work/by_def.lib"
  cmp "$work/by_def.lib" "$1/lib/QuarnFC.lib" || fail "QuarnFC.def gives another import library"
  echo "ok: the module-definition file"
}

check_msvc_zip() {
  local bin
  unpack_zip msvc
  bin=$(echo "$work"/zip/*/bin)
  "$here/check-prefix.sh" windows-msvc "$bin/.." "$build"
  check_exports "$bin/../lib/QuarnFC.def" exports-msvc.txt
  check_msvc_def "$bin/.."
  "$here/../msvc_abi/check-module.sh" "$llvm/llvm-readobj" "$bin/QuarnFC.dll"
  check_pdb "$bin/QuarnFC.dll"
  check_pdb "$bin/qn.exe"
  check_msvc_addresses "$bin/QuarnFC.dll"
  "$here/check-dump.sh" windows-msvc "$bin/.." "$build"
}

check_zip() {
  unpack_zip mingw
  "$here/check-prefix.sh" windows "$work/zip"/*/
  check_exports "$work"/zip/*/lib/QuarnFC.def exports-windows.txt
  check_def "$work"/zip/*/
  check_debug "$work"/zip/*/bin/QuarnFC.dll{,.debug}
  check_addresses "$work"/zip/*/bin/QuarnFC.dll
  "$here/check-dump.sh" windows "$work"/zip/*/
}

check_tgz() {
  unpack "$(one 'quarnfc-*-linux-x64.tar.gz')" "$work/tgz"
  unpack "$(one 'quarnfc-*-linux-x64-debug.tar.gz')" "$work/tgz"
  forgets_paths -a "$work/tgz"
  "$here/check-prefix.sh" linux "$work/tgz"/*/
  check_debug "$(readlink -f "$work"/tgz/*/lib/libQuarnFC.so)"{,.debug}
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

# check_dependencies BINARY PACKAGE: the package asks for one of every library that its binary loads;
# the library itself loads libcurl with its first request.
check_dependencies() {
  local depends name names
  depends=$(dpkg-deb -f "$(one "$2_*.deb")" Depends)
  mapfile -t names < <(objdump -p "$1" | awk '$1 == "NEEDED" && !/QuarnFC/ { print $2 }')
  [ "$2" != libquarnfc1 ] || names+=(libcurl.so.4)
  for name in "${names[@]}"; do
    depends_on "$depends" "$name" || fail "$name comes with none of: $depends"
  done
  printf 'ok: %s asks for the %d libraries it needs\n' "$2" "${#names[@]}"
}

# What Debian's own checker says against the packages. It does not know that the library's folder, the
# same for every architecture, and calls of ldconfig are cpack's and meant.
check_policy() {
  command -v lintian >/dev/null || return 0
  quiet lintian --allow-root --fail-on error,warning \
    --suppress-tags maintscript-calls-ldconfig,pkg-config-unavailable-for-cross-compilation \
    "$packages"/*.deb
  echo "ok: Debian's policy"
}

check_deb() {
  local package library
  for package in "$packages"/*.deb; do unpack "$package" "$work/deb"; done
  forgets_paths -a "$work/deb"
  "$here/check-prefix.sh" linux "$work/deb/usr"
  library=$(readlink -f "$work/deb/usr/lib/libQuarnFC.so")
  check_debug "$library" "$work/deb/usr/lib/debug/usr/lib/${library##*/}.debug"
  check_debug "$work/deb/usr/bin/qn" "$work/deb/usr/lib/debug/usr/bin/qn.debug"
  grep -q 'libcurl\.so\.4' "$library" || fail "the library is without its HTTP client"
  check_dependencies "$library" libquarnfc1
  check_dependencies "$work/deb/usr/bin/qn" quarnfc-tools
  check_policy
}

# The library as part of a host's own build: what it needs to start is beside the program.
check_subdirectory() {
  configure "$target" "$here/subdirectory" "$work/subdirectory" "-DQUARNFC_SOURCE=$source"
  # The compiler cache may take objects that another folder's build has left: nobody debugs these.
  quiet env -u CCACHE_HASHDIR CCACHE_NOHASHDIR=1 cmake --build "$work/subdirectory"
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
