#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Fuzzes with clang's libFuzzer, at the lowest priority. New inputs stay in build/fuzz/found/TARGET;
# what breaks a property is kept as build/fuzz/found/TARGET-crash-...
# Usage: fuzz.sh                    every target for ten seconds
#        fuzz.sh TARGET [SECONDS]   one of fuzz/TARGET_fuzz.cpp
set -euo pipefail
source "$(dirname "$0")/lib.sh"
cd "$project"

# fuzz_target TARGET SECONDS: prints how many texts were run.
fuzz_target() {
  local target=$1 found="build/fuzz/found/$1"
  [ -x "build/fuzz/bin/${target}_fuzz" ] || die "no such target: $target"
  mkdir -p "$found"
  logged "fuzz-$target" nice -n 19 "build/fuzz/bin/${target}_fuzz" -max_total_time="$2" \
    -print_final_stats=1 -artifact_prefix="$found-" "$found" "fuzz/corpus/$target"
  printf '%-14s %s texts\n' "$target" \
    "$(awk '/stat::number_of_executed_units/ { print $2 }' "$logs/fuzz-$target.log")"
}

configure_preset fuzz
if [ $# -gt 0 ]; then build_preset fuzz "$1_fuzz"; else build_preset fuzz fuzzers; fi
if [ $# -gt 0 ]; then
  fuzz_target "$1" "${2:-60}"
else
  for program in build/fuzz/bin/*_fuzz; do
    name=${program##*/}
    fuzz_target "${name%_fuzz}" 10
  done
fi
