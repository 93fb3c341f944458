#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The tests that use several threads under the thread sanitizer.
set -euo pipefail
exec "$(dirname "$0")/../test.sh" tsan
