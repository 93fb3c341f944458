#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds and runs every test: for Windows (under Wine, code page 936) and natively.
# The last line is "N passed, M failed" over all of them; the exit code is 0 when nothing failed.
# scripts/check.sh has what takes longer: sanitizers, lint, other compilers and builds.
# Usage: test.sh                        everything
#        test.sh PRESET [TEST_FILTER]   one of windows, linux, asan, tsan
set -euo pipefail
source "$(dirname "$0")/lib.sh"
source "$(dirname "$0")/tally.sh"

step "Checking what is installed"
"$project/scripts/setup.sh"
mkdir -p "$logs"
case ${1:-all} in
  all)
    test_preset windows
    test_preset linux
    ;;
  windows | linux | asan) test_preset "$@" ;;
  tsan) test_preset tsan "${2:-$thread_tests}" ;;
  *) die "usage: test.sh [windows|linux|asan|tsan [TEST_FILTER]]" ;;
esac
report
[ "$failed" -eq 0 ]
