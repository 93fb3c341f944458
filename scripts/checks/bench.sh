#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The benchmarks build and run, and their table can be made: each once, for no measurement's sake.
set -euo pipefail
source "$(dirname "$0")/../lib.sh"

logged bench-smoke "$project/scripts/bench.sh" --smoke
rows=$(grep -c '^[A-Za-z]' "$logs/bench-smoke.log")
[ "$rows" -gt 40 ]
printf '%d rows measured once\n' "$rows"
