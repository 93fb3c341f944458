# SPDX-License-Identifier: MIT
# shellcheck shell=bash
# Runs test programs and checks and counts what they say; sourced after lib.sh, never run.
# After sourcing: $passed, $failed, and the lists $skips and $failures.

passed=0
failed=0
skips=()
failures=()

# What the thread sanitizer is for: the tests that use several threads, and those of the HTTP client,
# which answers on one thread what another sent.
http_tests='*Http*:*Server*:*Session*:Open*:StatusCallback*:Cookie*:Handle*:InternetConnection*'
# shellcheck disable=SC2034 # the scripts that source this use it
thread_tests="*Threads*:*Concurren*:$http_tests"

export ASAN_OPTIONS="detect_leaks=1:${ASAN_OPTIONS:-}"
export UBSAN_OPTIONS="print_stacktrace=1:${UBSAN_OPTIONS:-}"
# shellcheck disable=SC2154 # lib.sh sets $project
export TSAN_OPTIONS="halt_on_error=1:suppressions=$project/tests/thread_sanitizer.supp:${TSAN_OPTIONS:-}"

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

# report: what was skipped and what failed; the last line is the total.
report() {
  local text
  for text in "${skips[@]}"; do printf 'skipped  %s\n' "$text"; done
  for text in "${failures[@]}"; do printf 'FAILED   %s\n' "$text"; done
  printf '%d passed, %d failed\n' "$passed" "$failed"
}

# How many processes share the tests of a program: the longest gets three, so that the others do not
# wait for it. (Not two: of the levels of a deep test the deeper is every second one.)
shards_of() { if [ "$1" = quarnfc_tests ]; then echo 3; else echo 1; fi; }

# shellcheck disable=SC2154 # lib.sh sets $logs
# run_program PRESET PROGRAM FILTER SHARD: one of the processes of a test program, in a folder of its
# own, since tests leave files in the folder they run in; its report is in
# $logs/test-PRESET-PROGRAM-SHARD.xml.
run_program() {
  local preset=$1 program=../../bin/$2 run=() log="$logs/test-$1-$2-$4"
  local folder="$project/build/$preset/run/$2-$4"
  [[ $preset != windows* ]] || { run=("$project/scripts/run-wine.sh") program=$program.exe; }
  [ "$2" != quarnfc_net_tests ] || run=("$project/tests/net/run-with-nginx.sh" "${run[@]}")
  rm -f "$log.xml"
  mkdir -p "$folder"
  cd "$folder" || return
  GTEST_TOTAL_SHARDS=$(shards_of "$2") GTEST_SHARD_INDEX=$4 \
    "${run[@]}" "$program" --gtest_color=no --gtest_filter="$3" \
    --gtest_output="xml:../../../logs/${log##*/}.xml" >"$log.log" 2>&1 </dev/null
}

# run_programs PRESET FILTER PROGRAM...: test programs, all at the same time.
run_programs() {
  local preset=$1 filter=$2 program shard status processes=() results
  shift 2
  for program in "$@"; do
    for ((shard = 0; shard < $(shards_of "$program"); shard++)); do
      (run_program "$preset" "$program" "$filter" "$shard") &
      processes+=("$!")
    done
  done
  for program in "$@"; do
    results=
    for ((shard = 0; shard < $(shards_of "$program"); shard++)); do
      status=0
      wait "${processes[0]}" || status=$?
      processes=("${processes[@]:1}")
      results+=$("$project/scripts/gtest_results.py" "$logs/test-$preset-$program-$shard" "$status")
      results+=$'\n'
    done
    count "$preset $program" <<<"$results"
  done
}

# run_checks PRESET: the checks beside the test programs: samples, host programs, the shape of the
# module, comparisons with peers.
run_checks() {
  local preset=$1 status=0
  local log="$logs/checks-$preset.log"
  ctest --test-dir "$project/build/$preset" -L check --no-tests=ignore --output-on-failure \
    -j "$(nproc)" >"$log" 2>&1 </dev/null || status=$?
  count "$preset checks" < <(LC_ALL=C awk '
    !/ Test +#[0-9]+: / { next }
    / Passed +[0-9.]+ sec/ { print "passed"; next }
    /\*\*\*Skipped/ { print "skipped " $4 ": see the log of the checks"; next }
    { print "failed", $4 }' "$log")
  [ "$status" -eq 0 ] || tail -n 60 "$log"
}

# test_preset PRESET [FILTER]: builds a preset and runs its tests.
test_preset() {
  local preset=$1 filter=${2:-*} program file programs=()
  step "$preset: configuring and building"
  if [[ $preset == windows* ]]; then
    mkdir -p "$project/build/$preset"
    "$project/scripts/run-wine.sh" --prepare "$project/build/$preset" &
  fi
  if ! configure_preset "$preset" || ! build_preset "$preset"; then
    wait
    count "$preset" <<<"failed the build"
    return
  fi
  wait
  step "$preset: running the tests"
  for program in quarnfc_tests quarnfc_internal_tests quarnfc_failing_memory_tests quarnfc_fuzz_tests \
    quarnfc_net_class_tests quarnfc_curl_tests quarnfc_net_tests; do
    for file in "$project/build/$preset/bin/$program"{,.exe}; do
      [ ! -e "$file" ] || programs+=("$program")
    done
  done
  run_programs "$preset" "$filter" "${programs[@]}"
  if [ "$preset" != tsan ] && [ "$filter" = '*' ]; then run_checks "$preset"; fi
}
