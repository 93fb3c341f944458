#!/usr/bin/env bash
# Puts the line "SPDX-License-Identifier: MIT" at the head of every file of the project that lacks
# it; --check only tells which do. Data, and files that cannot hold a comment, are left out.
# Usage: spdx.sh [--check]
set -euo pipefail
source "$(dirname "$0")/lib.sh"

cd "$project"
tag='SPDX-License-Identifier: MIT'

# Whether a file takes no line: data of others, recorded results, formats without comments.
left_out() {
  case $1 in
    data/* | tests/data/* | fuzz/corpus/* | tests/abi/expected/*) return 0 ;;
    LICENSE | *.json | *.svg | *.csv | *.bin | packaging/debian/*) return 0 ;;
    CMakeLists.txt | */CMakeLists.txt) return 1 ;;
    *.txt) return 0 ;;
  esac
  return 1
}

# line_for FILE: the tag as a comment of the file's language; a C header keeps C's own comments.
line_for() {
  case $1 in
    *.md | *.natvis | *.xml) printf '<!-- %s -->\n' "$tag" ;;
    *.map | *.c) printf '/* %s */\n' "$tag" ;;
    *.def) printf '; %s\n' "$tag" ;;
    *.h | *.cpp | *.cs | *.inc | *.h.in | *.rc.in | runtime/include/*)
      if [ "$(head -c 2 "$1")" = '/*' ]; then printf '/* %s */\n' "$tag"; else printf '// %s\n' "$tag"; fi
      ;;
    *) printf '# %s\n' "$tag" ;;
  esac
}

# What must stay the first line: the interpreter of a script, the declaration of XML.
keeps_first_line() {
  case $(head -n 1 "$1") in
    '#!'* | '<?xml'*) return 0 ;;
  esac
  return 1
}

add_line() {
  local skip=0 text
  keeps_first_line "$1" && skip=1
  text=$(
    head -n "$skip" "$1"
    line_for "$1"
    tail -n "+$((skip + 1))" "$1"
    printf x
  )
  printf '%s' "${text%x}" >"$1"
}

check=
case ${1:-} in
  --check) check=1 ;;
  '') ;;
  *) die "usage: spdx.sh [--check]" ;;
esac
missing=0
total=0
while IFS= read -r -d '' file; do
  if left_out "$file" || [ ! -s "$file" ]; then continue; fi
  total=$((total + 1))
  head -n 3 "$file" | grep -qaF "$tag" && continue
  missing=$((missing + 1))
  if [ -n "$check" ]; then printf '%s\n' "$file"; else add_line "$file"; fi
done < <(git ls-files -z)
if [ -n "$check" ]; then
  printf '%d of %d files lack their line\n' "$missing" "$total"
  [ "$missing" -eq 0 ]
else
  printf '%d of %d files got their line\n' "$missing" "$total"
fi
