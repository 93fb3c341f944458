#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Records the names that QuarnFC.dll exports: exports-windows.txt for the GNU compiler,
# exports-msvc.txt for the Microsoft C++ ABI. Run it after a deliberate change of the exported
# interface and look at the difference before committing it.
# Usage: record-exports.sh [windows | windows-msvc-abi]...
set -euo pipefail
source "$(dirname "$0")/lib.sh"

# The names in the export table of a DLL.
exported_names() {
  x86_64-w64-mingw32-objdump -p "$1" |
    awk '/\[Ordinal\/Name Pointer\] Table/ { table = 1; next }
         table && /^\t\[/ { print $NF; next }
         table && NF == 0 { exit }' |
    grep -v '^_ZTIP' | LC_ALL=C sort
}

record() {
  configure_preset "$1"
  build_preset "$1" QuarnFC
  exported_names "$project/build/$1/bin/QuarnFC.dll" >"$project/tests/module/$2"
}

[ $# -gt 0 ] || set -- windows windows-msvc-abi
for preset in "$@"; do
  case $preset in
    windows) record windows exports-windows.txt ;;
    windows-msvc-abi) record windows-msvc-abi exports-msvc.txt ;;
    *) die "usage: record-exports.sh [windows | windows-msvc-abi]..." ;;
  esac
done
