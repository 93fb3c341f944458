#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The native tests under valgrind.
set -euo pipefail
exec "$(dirname "$0")/../valgrind.sh"
