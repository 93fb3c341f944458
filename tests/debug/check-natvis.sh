#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs a host under gdb, which shows its variables as the natvis file says: it must be what
# expected-natvis.txt has. Visual Studio itself is tried nowhere.
# Usage: check-natvis.sh HOST FILE
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LC_ALL=C.UTF-8

command -v gdb >/dev/null || { echo "skipped: gdb is not installed"; exit 77; }

names=$(sed -n 's/^\([a-z]\{1,\}\) = .*/\1/p' "$here/expected-natvis.txt" | paste -sd ' ')
gdb --batch -nx -ex 'set width 0' -ex 'set print address off' -ex 'break Stop' -ex run -ex up \
  -ex "python natvis_file, natvis_names = '$2', '$names'" -ex "source $here/natvis.py" \
  "$1" >"$work/log" 2>&1 </dev/null || true
if grep -qi 'ptrace.*not permitted' "$work/log"; then
  echo "skipped: gdb may not trace programs here"
  exit 77
fi
if ! diff "$here/expected-natvis.txt" <(sed -n 's/^@//p' "$work/log"); then
  cat "$work/log"
  exit 1
fi
echo "ok: $(wc -w <<<"$names") variables"
