#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Lets a host crash that uses the library installed in a folder, and resolves the crash record it
# leaves: a frame of the library must come out with function, file and line.
# Usage: check-record.sh FOLDER
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
prefix=$(cd "$1" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

library=$(readlink -f "$prefix/lib/libQuarnFC.so")
g++ -std=c++17 -g -fshort-wchar -Wno-delete-non-virtual-dtor -I"$prefix/include" \
  "$here/../core/diagnostics/crash_host_posix.cpp" -o "$work/host" "$library" -pthread \
  "-Wl,-rpath,$prefix/lib"
"$work/host" Check "$work/report" || true
mv "$prefix/lib/log" "$work/log"
"$prefix/bin/quarnfc-resolve" "$work"/log/Check*.dmp >"$work/stack"
for frame in 'libQuarnFC.so.*: QNErrorUtils::DbgDumpErrorFileEx(.*core/diagnostics/crash_dump.cpp:[0-9]' \
  '^host: .*Crash.*crash_host_posix.cpp:[0-9]'; do
  grep -q "$frame" "$work/stack" && continue
  echo "no such frame: $frame"
  cat "$work"/log/* "$work/stack"
  exit 1
done
echo "ok: a crash record"
