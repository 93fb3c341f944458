#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Hosts whose wchar_t has more than the 16 bits of a unit of wide text: what uses wide text does not
# compile, and what does not, does.
# Usage: check-wide-units.sh COMPILER INCLUDE
set -euo pipefail

compiler=$1
include=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# compiles LANGUAGE STANDARD TEXT: whether a source of the text compiles in a host with wide units.
compiles() {
  "$compiler" -x "$1" "-std=$2" "-I$include" -fno-short-wchar -c -o "$scratch/host.o" - \
    <<<"$3" 2>"$scratch/errors"
}

# refuses WHAT LANGUAGE STANDARD TEXT: whether it is refused by the name of the option that it lacks.
refuses() {
  local what=$1
  shift
  if compiles "$@"; then
    echo "$what compiles with a wchar_t of 32 bits"
    exit 1
  fi
  if ! grep -q 'compile with -fshort-wchar' "$scratch/errors"; then
    echo "$what is refused without the name of the option:"
    cat "$scratch/errors"
    exit 1
  fi
}

count=0
while IFS= read -r header; do
  refuses "$header" c++ c++17 "#include <$header>"
  count=$((count + 1))
done < <(cd "$include" && grep -rlE '\<(wchar_t|BSTR)\>' quarnfc | grep -v 'quarnfc/plain.h' | sort)
[ "$count" -ge 10 ]

declare -A standards=([c]=c99 [c++]=c++17)
for language in c c++; do
  call='unsigned int code = 0; return qnGetErrorW((const CQNObject*)0, &code) != 0;'
  refuses "qnGetErrorW in $language" "$language" "${standards[$language]}" \
    "#include <quarnfc/plain.h>
     int main(void) { $call }"
  if ! compiles "$language" "${standards[$language]}" "#include <quarnfc/c/quarnfc.h>
     int main(void) { qnFreeMem(0); return 0; }"; then
    cat "$scratch/errors"
    exit 1
  fi
done
echo "$count headers and the plain function are refused"
