#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Whether the tests notice when something is broken: changes one comparison or constant of the
# library at a time in a copy of the tree, builds what changed and runs the tests of its folder. The
# last lines list the changes that no test noticed. By hand, before a release; an hour for about a
# hundred.
# Usage: mutation.sh [COUNT [SEED [FOLDER...]]]     500, 1, core json geo codec io
set -euo pipefail
source "$(dirname "$0")/lib.sh"
cd "$project"

"$project/scripts/setup.sh"
copy=build/mutation/tree
rm -rf "$copy"
mkdir -p "$copy"
git ls-files -z | xargs -0 cp --parents -t "$copy"
# Where the compiler cache takes it for any other build without optimisation.
logged configure-mutation cmake -S "$copy" -B "$copy/build/mutation" -G Ninja -DQUARNFC_WERROR=ON \
  -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG=-O0 -DCMAKE_C_FLAGS_DEBUG=-O0 \
  -DQUARNFC_BUILD_BENCH=OFF -DQUARNFC_BUILD_TOOLS=OFF -DQUARNFC_BUILD_SAMPLES=OFF
exec scripts/mutation.py "$copy" "$copy/build/mutation" "$@"
