#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the library with the Microsoft C++ ABI and runs its tests under Wine: the test programs, the
# hosts, the samples, what the DLL imports and exports. The last line is "N passed, M failed".
# Usage: test-msvc-abi.sh [TEST_FILTER]
set -euo pipefail
source "$(dirname "$0")/lib.sh"
source "$(dirname "$0")/tally.sh"

step "Checking what is installed"
"$project/scripts/setup.sh" --checks
"$project/scripts/fetch-libcxx.sh"
mkdir -p "$logs"
test_preset windows-msvc-abi "$@"
report
# shellcheck disable=SC2154 # tally.sh counts
[ "$failed" -eq 0 ]
