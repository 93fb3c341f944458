#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The native tests under valgrind: reads of memory that was never written, which no other check
# sees, and what the other programs' own allocators hide. Before a release; it takes ten minutes.
# Usage: valgrind.sh                       quarnfc_internal_tests, quarnfc_net_class_tests and
#                                          quarnfc_tests
#        valgrind.sh PROGRAM [FILTER]      one of them, some of its tests
# The build is that of the preset linux; QUARNFC_VALGRIND_BUILD names another one's folder.
set -euo pipefail
source "$(dirname "$0")/lib.sh"
source "$(dirname "$0")/tally.sh"

build=${QUARNFC_VALGRIND_BUILD:-$project/build/linux}

# What valgrind cannot run, a pattern and its reason a line.
left_out() {
  cat <<'LIST'
*DeepJson*	a million levels take an hour
LargeObject.*	a hundred thousand members take an hour
CsvRow.EveryShortLineSplitsByThePlainRules	every text of an alphabet takes an hour
CodePage*.Every*	every pair of bytes takes an hour
NumberText.*EveryExponent	every exponent takes an hour
TranscodeLarge.*	gigabytes of address space, mapped a thousand times
EventLogOffWindows.TextsOfAnyLengthArriveWhole	megabytes, character by character
JsonFiles.FilesOfMoreThanFiftyMebibytesAreRefused	fifty megabytes, character by character
JsonFiles.LengthsBeyondThirtyTwoBitsAreNotCutDown	files of gigabytes
HmacSha256.DataSizeIsTakenAsUnsigned	two gigabytes
LineReading.EveryShortText*	every text of an alphabet takes an hour
StackUse.*	what lies below the stack of a thread that has ended is read on purpose
ExhaustedMemory.*	valgrind's operator new takes the place of the one that refuses requests
BitText.ResultThatCannotBeHadIsNull	valgrind ends a process that the heap refuses a request
FixedAlloc.LeavesTheLockWhenTheHeapIsExhausted	the same
ModuleExceptions.RefusedSystemStrings*	the limit of the address space hits valgrind itself
CrashDump.CrashLeaves*	the process that crashes is valgrind's
CrashDumpOffWindows.*	the same
LIST
}

filter_without() {
  local patterns
  patterns=$(left_out | cut -f 1 | paste -s -d :)
  case $1 in
    *-*) printf '%s:%s\n' "$1" "$patterns" ;;
    *) printf '%s-%s\n' "$1" "$patterns" ;;
  esac
}

# Only what is wrong is printed. The pools and slabs that threads may still use at the end of the
# process are reachable, not lost.
run_under_valgrind() {
  local program=$1 filter=$2 status=0
  local log="$logs/test-valgrind-$program-0"
  rm -f "$log.xml"
  valgrind --quiet --error-exitcode=99 --leak-check=full --errors-for-leak-kinds=definite \
    --show-leak-kinds=definite --num-callers=30 --fullpath-after="$project/" \
    --log-file="$log.errors" \
    "$build/bin/$program" --gtest_color=no --gtest_filter="$(filter_without "$filter")" \
    --gtest_output="xml:$log.xml" >"$log.log" 2>&1 </dev/null || status=$?
  count "valgrind $program" < <("$project/scripts/gtest_results.py" "$log" "$status")
  if [ -s "$log.errors" ]; then
    head -n 60 "$log.errors"
    count "valgrind $program" <<<"failed what valgrind found: see $log.errors"
  fi
}

mkdir -p "$logs"
if [ "$build" = "$project/build/linux" ]; then
  "$project/scripts/setup.sh" --checks
  configure_preset linux
  build_preset linux
fi
while IFS=$'\t' read -r pattern reason; do
  skips+=("$pattern: $reason")
done < <(left_out)
if [ $# -gt 0 ]; then
  run_under_valgrind "$1" "${2:-*}"
else
  for program in quarnfc_internal_tests quarnfc_net_class_tests quarnfc_tests; do
    run_under_valgrind "$program" '*'
  done
fi
report
[ "$failed" -eq 0 ]
