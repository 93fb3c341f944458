#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The modules as they are released, with link-time optimisation: they build and export the same names.
set -euo pipefail
source "$(dirname "$0")/../lib.sh"
source "$(dirname "$0")/../tally.sh"
cd "$project"

for target in windows linux; do
  configure_preset "$target" -B "build/$target-lto" -DQUARNFC_LTO=ON
  build_preset "$target-lto" quarnfc_tests
  run_programs "$target-lto" 'Module*' quarnfc_tests
done
[ "$failed" -eq 0 ]
printf 'the modules with link-time optimisation pass the %d tests of their shape\n' "$passed"
