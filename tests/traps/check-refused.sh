#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Compiles refused.cpp without its refused calls, which must succeed, and with them: the compiler must
# refuse each for the reason that stands above it, and nothing else.
# Usage: check-refused.sh COMPILER [OPTION...]
set -euo pipefail

source=$(dirname "$0")/refused.cpp
compile=("$@" -fsyntax-only -Wall -Wextra -Wno-non-virtual-dtor -Wno-delete-non-virtual-dtor
  -Werror=format -Werror=deprecated-declarations -DQUARNFC_WARN_SHARING_COPIES)
export LC_ALL=C

# The errors of a compiler's output in the calls, as lines "LINE TEXT". What it says about a template
# that a call asks for stands at another place.
errors() { sed -nE 's|^[^ ]*refused\.cpp:([0-9]+):[0-9]+: error: |\1 |p'; }

for standard in 17 20; do
  "${compile[@]}" "-std=c++$standard" "$source"
  if output=$("${compile[@]}" "-std=c++$standard" -DREFUSED "$source" 2>&1); then
    echo "everything compiles as C++$standard"
    exit 1
  fi
  if ! awk -v standard="$standard" '
    NR == FNR { line[NR] = $1; $1 = ""; text[NR] = $0; errors = NR; next }
    FNR == 1 { call = 0 }
    sub(/^ *\/\/ REFUSED /, "") {
      call++
      start[call] = FNR
      reason[call] = substr($0, 1, index($0, ": ") - 1)
    }
    END {
      start[call + 1] = FNR + 1
      for (i = 1; i <= errors; i++) {
        of = 0
        for (c = 1; c <= call; c++) if (line[i] >= start[c] && line[i] < start[c + 1]) of = c
        if (of == 0) { print "an error outside of the calls:" text[i]; wrong++ }
        else if (text[i] ~ reason[of]) refused[of] = 1
      }
      for (c = 1; c <= call; c++) {
        if (refused[c]) continue
        print "the call below line " start[c] " is not refused for its reason: " reason[c]
        wrong++
      }
      if (call == 0) { print "there are no calls"; wrong++ }
      print "C++" standard ": " call " calls are refused"
      exit wrong > 0
    }' <(errors <<<"$output") "$source"; then
    printf '%s\n' "$output"
    exit 1
  fi
done
