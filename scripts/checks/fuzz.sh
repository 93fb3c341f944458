#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The fuzzers build, and each runs over its corpus and two seconds further.
set -euo pipefail
source "$(dirname "$0")/../lib.sh"
cd "$project"

configure_preset fuzz
build_preset fuzz fuzzers
count=0
for program in build/fuzz/bin/*_fuzz; do
  name=${program##*/}
  mkdir -p "build/fuzz/found/$name"
  logged "run-$name" "$program" -max_total_time=2 -artifact_prefix="build/fuzz/found/$name-" \
    "build/fuzz/found/$name" "fuzz/corpus/${name%_fuzz}"
  count=$((count + 1))
done
[ "$count" -gt 0 ]
printf '%d fuzzers build and find nothing in two seconds\n' "$count"
