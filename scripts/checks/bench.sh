#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The benchmarks build and run: each benchmark once, for no measurement's sake.
set -euo pipefail
source "$(dirname "$0")/../lib.sh"
cd "$project"

configure_preset linux -B build/bench -DQUARNFC_BUILD_BENCH=ON -DQUARNFC_BUILD_TESTS=OFF
build_preset bench
count=0
for program in build/bench/bin/*_bench; do
  logged "run-${program##*/}" "$program" --benchmark_min_time=0.001
  count=$((count + 1))
done
[ "$count" -gt 0 ]
printf '%d benchmark programs build and run\n' "$count"
