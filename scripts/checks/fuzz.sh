#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The fuzzers build, and each runs over its corpus and two seconds further.
set -euo pipefail
exec "$(dirname "$0")/../fuzz.sh" all 2
