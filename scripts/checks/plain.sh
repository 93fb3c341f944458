#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The build that a stranger makes: no preset, no generator named, Release. Here a warning of the
# compiler's highest optimisation is an error, so that a second run sees it, too.
set -euo pipefail
source "$(dirname "$0")/../lib.sh"
cd "$project"

logged configure-plain cmake -S . -B build/plain -DCMAKE_BUILD_TYPE=Release \
  -DQUARNFC_WERROR=ON
logged build-plain cmake --build build/plain --parallel "$(nproc)"
logged test-plain build/plain/bin/quarnfc_tests --gtest_brief=1
printf 'the plain Release build has no warning and passes its tests\n'
