#!/usr/bin/env bash
# Records the names that QuarnFC.dll exports. Run it after a deliberate change of the exported
# interface and look at the difference before committing it.
set -euo pipefail
source "$(dirname "$0")/lib.sh"

configure_preset windows
build_preset windows QuarnFC
x86_64-w64-mingw32-objdump -p "$project/build/windows/bin/QuarnFC.dll" |
  awk '/\[Ordinal\/Name Pointer\] Table/ { table = 1; next }
       table && /^\t\[/ { print $NF; next }
       table && NF == 0 { exit }' |
  LC_ALL=C sort >"$project/tests/module/exports-windows.txt"
