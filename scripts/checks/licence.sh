#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Every file that can hold it has the line about its licence.
set -euo pipefail
source "$(dirname "$0")/../lib.sh"

"$project/scripts/spdx.sh" --check
