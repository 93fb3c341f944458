#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The bars of the project as a table: lengths of files and functions, complexity, how much of the
# public headers is documentation, and what the compilers said in the builds of the other checks.
# Every row that has a bar is gated.
set -euo pipefail
source "$(dirname "$0")/../lib.sh"
cd "$project"

failed=0

sources_in() { git ls-files -- '*.cpp' '*.h' | grep -E "^($1)/" | grep -v '_data\.h$'; }
library() { sources_in 'platform|runtime|core|json|geo|net|codec|io|c'; }
tools() { sources_in 'tools'; }
tests() { sources_in 'tests'; }

file_lengths() { xargs wc -l | awk '$2 != "total" { print $1 }'; }
# pmccabe: field 2 is the cyclomatic complexity, field 5 the lines of a function.
functions() { grep '\.cpp$' | xargs pmccabe 2>/dev/null; }
function_lengths() { functions | awk '{ print $5 }'; }
complexities() { functions | awk '{ print $2 }'; }

# row TITLE MEDIAN NINTH: the median, the 90th percentile and the largest of the numbers on standard
# input; the first two have bars. Nothing to measure is a failure, too.
row() {
  sort -n | awk -v title="$1" -v bar50="$2" -v bar90="$3" '
    { value[NR] = $1 }
    function at(share) { return value[int((NR - 1) * share) + 1] }
    END {
      over = at(0.5) > bar50 || at(0.9) > bar90
      printf "   %-33s %6d %6d %6d   bars %d, %d%s\n", title, at(0.5), at(0.9), value[NR], bar50, bar90,
             over ? ": TOO MUCH" : ""
      exit !NR || over
    }' || failed=1
}

# The lines of the public headers that are comments, in percent of those that are not empty. What
# stands in a namespace detail is no declaration for hosts and is left out.
comment_share() {
  git ls-files -- 'include/*.h' | xargs awk '
    FNR == 1 { block = 0; detail = 0 }
    /^namespace .*detail \{/ { detail = 1 }
    detail { if (/^\}  \/\/ namespace .*detail/) detail = 0; next }
    /^[[:space:]]*$/ { next }
    { all++ }
    block || /^[[:space:]]*\/[\/*]/ { comments++ }
    /^[[:space:]]*\/\*/ { block = 1 }
    /\*\// { block = 0 }
    END { printf "%d", 100 * comments / all }'
}

# warnings COMPILER BUILD...: the warnings of a compiler in the builds that have been made.
warnings() {
  local title="warnings, $1" name count logs_there=()
  shift
  for name in "$@"; do
    if [ -f "$logs/build-$name.log" ]; then logs_there+=("$logs/build-$name.log"); fi
  done
  if [ ${#logs_there[@]} -eq 0 ]; then
    printf '   %-33s not built yet\n' "$title"
    return
  fi
  count=$(cat "${logs_there[@]}" | grep -cF 'warning:' || true)
  printf '   %-33s %6d                 bar 0\n' "$title" "$count"
  [ "$count" -eq 0 ] || failed=1
}

printf '   %-33s %6s %6s %6s\n' '' median 90% most
row 'lines of a file, library' 150 250 < <(library | file_lengths)
row 'lines of a file, tools' 150 250 < <(tools | file_lengths)
row 'lines of a file, tests' 150 500 < <(tests | file_lengths)
row 'lines of a function, library' 10 20 < <(library | function_lengths)
row 'cyclomatic complexity, library' 4 8 < <(library | complexities)
row 'cyclomatic complexity, tools' 4 8 < <(tools | complexities)
row 'cyclomatic complexity, tests' 4 8 < <(tests | complexities)
warnings 'gcc' plain linux linux-lto asan tsan bench
warnings 'clang' clang fuzz
warnings 'gcc for Windows' windows windows-lto
share=$(comment_share)
printf '   %-33s %6d                 bar 40\n' 'comments in public headers, %' "$share"
[ "$share" -ge 40 ] || failed=1
if [ "$failed" -ne 0 ]; then
  printf 'something is above its bar\n'
  exit 1
fi
printf '%d %% of the public headers is documentation; every length and complexity is within its bar\n' \
  "$share"
