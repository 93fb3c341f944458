#!/usr/bin/env bash
# The bars of the project as a table: lengths of files and functions, complexity, and how much of the
# public headers is documentation. The share of comments is gated; the rest tells where to look.
set -euo pipefail
cd "$(dirname "$0")/../.."

least_comments=40 # percent of the lines of the public headers that are not empty

library() { git ls-files -- '*.cpp' '*.h' | grep -E '^(platform|core|json|geo|net|codec|io)/' | grep -v '_data\.h$'; }
tests() { git ls-files -- 'tests/*.cpp' 'tests/*.h'; }

# distribution: the median, the 90th percentile and the largest of the numbers on standard input.
distribution() {
  sort -n | awk '{ value[NR] = $1 }
    function at(share) { return value[int((NR - 1) * share) + 1] }
    END { printf "%6d %6d %6d\n", at(0.5), at(0.9), value[NR] }'
}

file_lengths() { xargs wc -l | awk '$2 != "total" { print $1 }'; }
# pmccabe: field 2 is the cyclomatic complexity, field 5 the lines of a function.
functions() { grep '\.cpp$' | xargs pmccabe 2>/dev/null; }

row() { printf '   %-38s' "$1" && distribution; }

comment_share() {
  git ls-files -- 'include/*.h' | xargs awk '
    /^[[:space:]]*$/ { next }
    { all++ }
    /^[[:space:]]*\/\// { comments++ }
    END { printf "%d", 100 * comments / all }'
}

printf '   %-38s%6s %6s %6s\n' '' median 90% most
library | file_lengths | row 'lines of a file, library'
tests | file_lengths | row 'lines of a file, tests'
library | functions | awk '{ print $5 }' | row 'lines of a function, library'
library | functions | awk '{ print $2 }' | row 'cyclomatic complexity, library'
tests | functions | awk '{ print $2 }' | row 'cyclomatic complexity, tests'
share=$(comment_share)
if [ "$share" -lt "$least_comments" ]; then
  printf 'only %d %% of the public headers is documentation, and %d %% is the bar\n' "$share" "$least_comments"
  exit 1
fi
printf '%d %% of the public headers is documentation\n' "$share"
