#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Prints the call stack of a crash record (Linux) with functions, files and lines, as far as there is
# debug information: in MODULE.debug beside a module or below /usr/lib/debug, or in the module itself.
# Usage: quarnfc-resolve RECORD.dmp [FOLDER]
# With FOLDER modules are looked for there instead of where the record says they were.
set -euo pipefail

record=$1
folder=${2:-}

# address_of MODULE SYMBOL OFFSET: where a frame is, counted from the start of the module.
address_of() {
  local start=0
  if [ -n "$2" ]; then
    start=0x$(nm -D --defined-only "$1" 2>/dev/null | awk -v name="$2" '{ sub(/@.*/, "", $3) } $3 == name { print $1; exit }')
    [ "$start" != 0x ] || return 1
  fi
  # A return address is behind its call, which may be the last instruction of a line.
  printf '0x%x\n' $((start + $3 - 1))
}

# resolve MODULE SYMBOL OFFSET: the frame in words; fails without the module or its symbols.
resolve() {
  local module=$1 symbols address place
  [ -z "$folder" ] || module=$folder/${1##*/}
  module=$(readlink -f "$module") && [ -f "$module" ] || return 1
  address=$(address_of "$module" "$2" "$3") || return 1
  symbols=$module
  for place in "/usr/lib/debug$module.debug" "$module.debug"; do
    [ ! -f "$place" ] || symbols=$place
  done
  addr2line -C -f -i -p -e "$symbols" "$address"
}

while IFS= read -r line; do
  if [[ $line =~ ^(.+)\(([^+()]*)\+(0x[0-9a-f]+)\)\ ?\[ ]] &&
    words=$(resolve "${BASH_REMATCH[1]}" "${BASH_REMATCH[2]}" "${BASH_REMATCH[3]}"); then
    printf '%s: %s\n' "${BASH_REMATCH[1]##*/}" "$words"
  else
    printf '%s\n' "$line"
  fi
done <"$record"
