#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Fuzzes with clang's libFuzzer, at the lowest priority. New inputs stay in build/fuzz/found/TARGET;
# what breaks a property is kept as build/fuzz/found/TARGET-crash-... and fails the script, after the
# other targets. The last line is the sum of build/fuzz/executions.tsv, to which every run adds.
# Usage: fuzz.sh [--fast] [--short] [TARGET|all [SECONDS]]     all, 10
# A target is one of fuzz/TARGET_fuzz.cpp. --fast leaves the sanitizers out and optimises: many
# times the texts in the same time, of which only those that break a property or crash are seen.
# --short tries texts of at most 64 bytes: many more again, and most faults show in few bytes.
set -euo pipefail
source "$(dirname "$0")/lib.sh"
cd "$project"

preset=fuzz
limits=()
while [[ ${1:-} == --* ]]; do
  case $1 in
    --fast) preset=fuzz-fast ;;
    --short) limits=(-max_len=64) ;;
    *) die "no such option: $1" ;;
  esac
  shift
done
target=${1:-all}
seconds=${2:-10}
tally=build/fuzz/executions.tsv
status=0

# fuzz_target TARGET: adds to the tally, and prints, how many texts were run.
fuzz_target() {
  local found="build/fuzz/found/$1" log="$logs/$preset-$1.log" count
  [ -x "build/$preset/bin/$1_fuzz" ] || die "no such target: $1"
  mkdir -p "$found"
  logged "$preset-$1" nice -n 19 "build/$preset/bin/$1_fuzz" -max_total_time="$seconds" \
    "${limits[@]}" -print_final_stats=1 -artifact_prefix="$found-" "$found" "fuzz/corpus/$1" || status=1
  count=$(awk '/stat::number_of_executed_units/ { print $2 }' "$log")
  printf '%s\t%s\t%s\t%s\n' "$(date +%F)" "$preset" "$1" "${count:-0}" >>"$tally"
  printf '   %-14s %s texts\n' "$1" "${count:-no}"
}

configure_preset "$preset"
mkdir -p build/fuzz
if [ "$target" = all ]; then
  build_preset "$preset" fuzzers
  for program in "build/$preset"/bin/*_fuzz; do
    name=${program##*/}
    fuzz_target "${name%_fuzz}"
  done
else
  build_preset "$preset" "${target}_fuzz"
  fuzz_target "$target"
fi
awk '{ sum += $4 } END { printf "%d texts in all\n", sum }' "$tally"
exit "$status"
