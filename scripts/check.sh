#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The checks beside the tests, one script each in scripts/checks. A line tells what each came to; what
# a failing one printed is shown. The last line is "N passed, M failed".
# Usage: check.sh            those that run with every change
#        check.sh all        all of them, before a release
#        check.sh NAME...    some:  check.sh layers format
set -euo pipefail
source "$(dirname "$0")/lib.sh"

# The quick ones first; the bars last, for they count what the others' compilers said. With the tests
# they stay below an hour on two cores with an empty compiler cache.
gates=(format shell licence layers docs plain asan tsan clang msvc coverage fuzz bench tidy)
# Before a release, by hand: modules and packages as they are released, which are built twice more
# with link-time optimisation; and the native tests under valgrind, ten minutes.
release_gates=(release packages valgrind)
last_gates=(bars)

passed=0
failed=0

# tests_of LOG: how many tests a check has run that stand beside those of scripts/test.sh, because
# no other build has them; a check without counts as one.
tests_of() {
  if [[ $1 == */check-msvc.log && $(tail -n 1 "$1") =~ ^([0-9]+)\ passed, ]]; then
    printf '%d\n' "${BASH_REMATCH[1]}"
  else
    echo 1
  fi
}

run_gate() {
  local name=$1 log="$logs/check-$1.log" start=$SECONDS
  if [ ! -x "$project/scripts/checks/$name.sh" ]; then die "no such check: $name"; fi
  if "$project/scripts/checks/$name.sh" >"$log" 2>&1 </dev/null; then
    passed=$((passed + $(tests_of "$log")))
    printf 'ok      %-8s %s (%d s)\n' "$name" "$(tail -n 1 "$log")" $((SECONDS - start))
    grep -E '^(skipped |   [a-z/]+ +->|   .* bars? [0-9]|      [a-z_/0-9]+\.(cpp|h):[0-9]+: )' "$log" || true
  else
    failed=$((failed + 1))
    tail -n 80 "$log"
    printf 'FAILED  %-8s (%d s; the whole log: %s)\n' "$name" $((SECONDS - start)) "$log"
  fi
}

mkdir -p "$logs"
"$project/scripts/setup.sh" --checks
[ $# -gt 0 ] || set -- "${gates[@]}" "${last_gates[@]}"
[ "$1" != all ] || set -- "${gates[@]}" "${release_gates[@]}" "${last_gates[@]}"
for name in "$@"; do run_gate "$name"; done
printf '%d passed, %d failed\n' "$passed" "$failed"
[ "$failed" -eq 0 ]
