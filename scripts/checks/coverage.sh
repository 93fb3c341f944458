#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The lines and branches that the tests reach, against their bars.
set -euo pipefail
exec "$(dirname "$0")/../coverage.sh"
