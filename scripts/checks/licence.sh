#!/usr/bin/env bash
# Every file that can hold it has the line about its licence.
set -euo pipefail
source "$(dirname "$0")/../lib.sh"

"$project/scripts/spdx.sh" --check
