#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Compiles every CASE of refused.cpp: case 0 must compile, each other one must be refused for the
# reason that stands behind its number.
# Usage: check-refused.sh COMPILER [OPTION...]
set -euo pipefail

source=$(dirname "$0")/refused.cpp
compile=("$@" -fsyntax-only -Wall -Wextra -Wno-non-virtual-dtor -Wno-delete-non-virtual-dtor
  -Werror=format -Werror=deprecated-declarations -DQUARNFC_WARN_SHARING_COPIES)
export LC_ALL=C

for standard in 17 20; do
  "${compile[@]}" "-std=c++$standard" -DCASE=0 "$source"
  count=0
  while IFS='|' read -r number reasons; do
    count=$((count + 1))
    if output=$("${compile[@]}" "-std=c++$standard" "-DCASE=$number" "$source" 2>&1); then
      echo "case $number compiles as C++$standard"
      exit 1
    fi
    grep -Eq -e "$reasons" <<<"$output" || {
      printf 'case %s is refused for another reason than: %s\n%s\n' "$number" "$reasons" "$output"
      exit 1
    }
  done < <(sed -n 's/^#.*CASE == \([0-9]*\)  *\/\/ \([^:]*\): .*/\1|\2/p' "$source")
  [ "$count" -eq "$(grep -c 'CASE ==' "$source")" ] || {
    echo "a case of $source has no reason behind its number"
    exit 1
  }
  echo "C++$standard: $count calls are refused"
done
