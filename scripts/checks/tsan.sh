#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The tests that use several threads, and those of the HTTP client, under the thread sanitizer.
set -euo pipefail
exec "$(dirname "$0")/../test.sh" tsan
