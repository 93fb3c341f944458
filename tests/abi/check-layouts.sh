#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Compares the layout of every exported class under the Microsoft C++ ABI (virtual slots, fields
# with their offsets, size) with tests/abi/expected/CLASS.txt. Hosts are compiled against these
# layouts, so a difference is a break of every host.
# Usage: check-layouts.sh               compares; exit code 77 when clang or the headers are missing
#        check-layouts.sh --print CLASS prints the layout of a class in the form of the expected file
#        check-layouts.sh --build BUILD_FOLDER
#                                       compares what the compiler of a Microsoft-ABI build lays out
#                                       with the options that the library is compiled with
set -euo pipefail

folder=$(cd "$(dirname "$0")" && pwd)
project=$(cd "$folder/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

build=
if [ "${1:-}" = --build ]; then build=$2; fi

clang=$(command -v clang++-14 || command -v clang++ || true)
mingw=$(command -v x86_64-w64-mingw32-g++-posix || command -v x86_64-w64-mingw32-g++ || true)
if [ -z "$clang" ] || [ -z "$mingw" ]; then
  echo "skipped: clang++ or the MinGW compiler, whose headers it reads, is not installed"
  exit 77
fi

# A class derived from each one, so that clang lays out its virtual table whatever it contains.
write_probe() {
  local class
  echo '#include <quarnfc/quarnfc.h>'
  for class in "$@"; do
    printf 'struct Probe%s : %s { virtual void Anchor(); };\n' "$class" "$class"
    printf 'int Touch(Probe%s* p) { p->Anchor(); return sizeof(%s); }\n' "$class" "$class"
  done
}

# The command that compiles core/diagnostics/version.cpp into the library, a word a line, without
# its files.
library_command() {
  python3 - "$build/compile_commands.json" <<'END'
import json, shlex, sys
entries = json.load(open(sys.argv[1], encoding="utf-8"))
entry = next(e for e in entries if e["file"].endswith("/core/diagnostics/version.cpp"))
words = shlex.split(entry["command"])
words = words[: words.index("--")] if "--" in words else words
print("\n".join(w for w in words if w != "-c" and not w.startswith(("/Fo", "/Fd", "/showIncludes"))))
END
}

dump_layouts() {
  if [ -n "$build" ]; then
    local command
    mapfile -t command < <(library_command)
    "${command[@]}" -w -Xclang -fdump-vtable-layouts -Xclang -fdump-record-layouts \
      -c "/Fo$work/probe.obj" -- "$1"
    return
  fi
  local cxx
  cxx=$("$mingw" -print-file-name=include/c++)
  "$clang" --target=x86_64-pc-windows-msvc -fgnuc-version=12.0.0 -std=c++17 -w \
    -I"$project/include" -nostdinc++ -isystem "$cxx" -isystem "$cxx/x86_64-w64-mingw32" \
    -isystem /usr/x86_64-w64-mingw32/include -S -emit-llvm -o /dev/null \
    -Xclang -fdump-vtable-layouts -Xclang -fdump-record-layouts -x c++ "$1"
}

# The layout of one class from clang's dump.
layout_of() {
  awk -v class="$1" -v quote="'" '
    /^VFTable for / {
      in_table = index($0, quote "Probe" class quote " (") > 0
      next
    }
    /^[^ ]/ || /^$/ { in_table = 0 }
    in_table && / \| / {
      entry = $0
      sub(/^ *[0-9]+ \| /, "", entry)
      if (entry ~ / RTTI$/ || entry ~ /::Anchor\(\)$/) next
      if (entry ~ /~/) entry = "destructor"
      gsub(/DWORD/, "unsigned long", entry)  # the name of that type on Windows
      slots[++slot_count] = entry
    }
    /\*\*\* Dumping AST Record Layout/ { at_record = 1; in_record = 0; next }
    at_record { in_record = $0 ~ "^ *0 \\| (class|struct) " class "$"; at_record = 0; next }
    in_record && /^ *[0-9]+ \|   [^ ]/ {
      split($0, parts, /[ ]*\|   /)
      gsub(/ /, "", parts[1])
      field = parts[2]
      sub(/^(class|struct|enum) /, "", field)
      if (!done) fields[++field_count] = sprintf("%4d  %s", parts[1], field)
    }
    in_record && /sizeof=/ {
      size = $0
      gsub(/.*sizeof=|,.*/, "", size)
      done = 1
    }
    END {
      print "class " class
      print "slots"
      for (i = 1; i <= slot_count; i++) printf "%4d  %s\n", i - 1, slots[i]
      print "fields"
      for (i = 1; i <= field_count; i++) print fields[i]
      print "size " size
    }' "$work/dump.txt"
}

mapfile -t classes < <(sed -n 's/^\(class\|struct\) QN_API \([A-Za-z0-9_]*\).*/\2/p' "$project"/include/quarnfc/*.h)
write_probe "${classes[@]}" >"$work/probe.cpp"
dump_layouts "$work/probe.cpp" >"$work/dump.txt"

if [ "${1:-}" = --print ]; then
  layout_of "$2"
  exit 0
fi

failed=0
for class in "${classes[@]}"; do
  expected="$folder/expected/$class.txt"
  if [ ! -f "$expected" ]; then
    echo "FAILED  $class: no $expected"
    failed=1
  elif ! layout_of "$class" | diff -u "$expected" - >"$work/diff.txt"; then
    echo "FAILED  $class: expected (-) and actual (+) layout differ"
    cat "$work/diff.txt"
    failed=1
  else
    echo "ok      $class"
  fi
done
for expected in "$folder"/expected/*.txt; do
  class=$(basename "$expected" .txt)
  [[ " ${classes[*]} " == *" $class "* ]] || { echo "FAILED  $class is not exported" && failed=1; }
done
exit "$failed"
