#!/usr/bin/env bash
# The build that a stranger makes: no preset, no generator named, Release; with every warning that
# the compiler's highest optimisation brings.
set -euo pipefail
source "$(dirname "$0")/../lib.sh"
cd "$project"

logged configure-plain cmake -S . -B build/plain -DCMAKE_BUILD_TYPE=Release
logged build-plain cmake --build build/plain --parallel "$(nproc)"
if grep -F 'warning:' "$logs/build-plain.log"; then exit 1; fi
logged test-plain build/plain/bin/quarnfc_tests --gtest_brief=1
printf 'the plain Release build has no warning and passes its tests\n'
