#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Whether the tests notice when something is broken: changes one comparison or constant of the
# library at a time in a copy of the tree, builds what changed and runs the tests of its folder. The
# last lines list the changes that no test noticed. By hand, before a release. It may be stopped: what
# became of each change is kept in build/mutation/results.tsv, and the next run goes on from there.
# Usage: mutation.sh [COUNT [SEED [FOLDER...]]]     500, 1, core json geo codec io
#        mutation.sh survivors                      once more those that no test noticed
set -euo pipefail
source "$(dirname "$0")/lib.sh"
cd "$project"

"$project/scripts/setup.sh"
copy=build/mutation/tree
# Only what differs is copied, which is all that has to be built.
scripts/mutation.py copy "$copy"
# No test program is linked again because the library was.
logged configure-mutation cmake -S "$copy" -B "$copy/build/mutation" -G Ninja -DQUARNFC_WERROR=ON \
  -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG=-O1 -DCMAKE_C_FLAGS_DEBUG=-O1 \
  -DCMAKE_LINK_DEPENDS_NO_SHARED=ON \
  -DQUARNFC_BUILD_BENCH=OFF -DQUARNFC_BUILD_TOOLS=OFF -DQUARNFC_BUILD_SAMPLES=OFF
exec scripts/mutation.py "$copy" "$copy/build/mutation" build/mutation/results.tsv "$@"
