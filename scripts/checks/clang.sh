#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# clang builds all of the project without a warning.
set -euo pipefail
source "$(dirname "$0")/../lib.sh"
cd "$project"

configure_preset linux -B build/clang -DCMAKE_C_COMPILER=clang-14 -DCMAKE_CXX_COMPILER=clang++-14
build_preset clang
logged test-clang build/clang/bin/quarnfc_internal_tests --gtest_brief=1
printf 'clang builds everything without a warning\n'
