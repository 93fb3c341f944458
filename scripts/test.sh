#!/usr/bin/env bash
# Builds and runs every test: on Windows (under Wine, code page 936), natively, natively with the
# Address and UB sanitizers and leak detection, and what uses threads with the thread sanitizer.
# The last line is "N passed, M failed" over all of them; the exit code is 0 when nothing failed.
# Usage: test.sh                        everything
#        test.sh PRESET [TEST_FILTER]   one of windows, linux, asan, tsan
set -euo pipefail
source "$(dirname "$0")/lib.sh"

programs=(quarnfc_tests quarnfc_internal_tests)
web_program=quarnfc_net_tests # on Windows, beside a web server
thread_tests='*Threads*:*Concurren*'
passed=0
failed=0
skips=()
failures=()

export ASAN_OPTIONS="detect_leaks=1:${ASAN_OPTIONS:-}"
export UBSAN_OPTIONS="print_stacktrace=1:${UBSAN_OPTIONS:-}"
export TSAN_OPTIONS="halt_on_error=1:${TSAN_OPTIONS:-}"

# count WHERE: reads lines "passed", "failed NAME" and "skipped NAME: REASON" and adds them up.
count() {
  local where=$1 kind rest ok=0 bad=0 skipped=0
  while read -r kind rest; do
    case $kind in
      passed) ok=$((ok + 1)) ;;
      failed) bad=$((bad + 1)) failures+=("$where: $rest") ;;
      skipped) skipped=$((skipped + 1)) skips+=("$where: $rest") ;;
    esac
  done
  passed=$((passed + ok))
  failed=$((failed + bad))
  printf '   %s: %d passed, %d failed, %d skipped\n' "$where" "$ok" "$bad" "$skipped"
}

# The results in a log of GoogleTest. A program that ended before its last test failed in the test
# that was running.
gtest_results() {
  LC_ALL=C tr -d '\r' <"$1" | LC_ALL=C awk -v status="$2" '
    { result = / \([0-9]+ ms\)$/ }
    /^\[ RUN      \] / { running = $4; reason = "" }
    /\[       OK \] / && result { print "passed"; running = "" }
    /\[  FAILED  \] / && result && running { print "failed", running; running = ""; bad++ }
    /\[  SKIPPED \] / && result { print "skipped " running ":" reason; running = "" }
    /: Skipped$/ { reason = ""; next }
    running { reason = reason " " $0 }
    /^\[==========\] .* ran\./ { ended = 1 }
    END {
      if (!ended) print "failed the program ended early" (running ? " in " running : "")
      else if (status != 0 && !bad) print "failed the program exited with " status
    }'
}

# What a log of GoogleTest says of the tests that failed.
show_gtest_failures() {
  LC_ALL=C awk '
    /^\[ RUN      \] / { text = ""; lines = 0 }
    lines < 60 { text = text $0 "\n"; lines++ }
    /\[  FAILED  \] .* \([0-9]+ ms\)/ { printf "%s", text; text = "" }
    /^\[==========\] .* ran\./ { text = ""; ended = 1; lines = 60 }
    END { if (!ended) printf "%s", text }' "$1"
}

run_program() {
  local preset=$1 program=$2 filter=$3 status=0 results
  local folder="$project/build/$preset" log="$logs/test-$1-$2.log" run=()
  program=bin/$program
  [ "$preset" != windows ] || { run=("$project/scripts/run-wine.sh") program=$program.exe; }
  [ "$2" != "$web_program" ] || run=("$project/tests/net/run-with-nginx.sh" "${run[@]}")
  (cd "$folder" && "${run[@]}" "$program" --gtest_color=no --gtest_filter="$filter") \
    >"$log" 2>&1 </dev/null || status=$?
  results=$(gtest_results "$log" "$status")
  count "$preset $2" <<<"$results"
  ! grep -q '^failed' <<<"$results" || show_gtest_failures "$log"
}

# The checks beside the test programs: samples, host programs, the shape of the module.
run_checks() {
  local preset=$1 status=0
  local log="$logs/checks-$preset.log"
  ctest --test-dir "$project/build/$preset" -L check --no-tests=ignore --output-on-failure \
    >"$log" 2>&1 </dev/null || status=$?
  count "$preset checks" < <(LC_ALL=C awk '
    !/ Test +#[0-9]+: / { next }
    / Passed +[0-9.]+ sec/ { print "passed"; next }
    /\*\*\*Skipped/ { print "skipped " $4 ": see the log of the checks"; next }
    { print "failed", $4 }' "$log")
  [ "$status" -eq 0 ] || tail -n 60 "$log"
}

test_preset() {
  local preset=$1 filter=$2 program
  step "$preset: configuring and building"
  if [ "$preset" = windows ]; then
    mkdir -p "$project/build/windows"
    "$project/scripts/run-wine.sh" --prepare "$project/build/windows" &
  fi
  if ! configure_preset "$preset" || ! build_preset "$preset"; then
    count "$preset" <<<"failed the build"
    return
  fi
  wait
  step "$preset: running the tests"
  for program in "${programs[@]}"; do
    run_program "$preset" "$program" "$filter"
  done
  [ "$preset" != windows ] || run_program "$preset" "$web_program" "$filter"
  if [ "$preset" != tsan ] && [ "$filter" = '*' ]; then run_checks "$preset"; fi
}

report() {
  local text
  for text in "${skips[@]}"; do printf 'skipped  %s\n' "$text"; done
  for text in "${failures[@]}"; do printf 'FAILED   %s\n' "$text"; done
  printf '%d passed, %d failed\n' "$passed" "$failed"
}

step "Checking what is installed"
"$project/scripts/setup.sh"
mkdir -p "$logs"
case ${1:-all} in
  all)
    test_preset windows '*'
    test_preset linux '*'
    test_preset asan '*'
    test_preset tsan "$thread_tests"
    ;;
  windows | linux | asan) test_preset "$1" "${2:-*}" ;;
  tsan) test_preset tsan "${2:-$thread_tests}" ;;
  *) die "usage: test.sh [windows|linux|asan|tsan [TEST_FILTER]]" ;;
esac
report
[ "$failed" -eq 0 ]
