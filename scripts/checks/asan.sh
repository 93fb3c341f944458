#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Every test under the Address and UB sanitizers, with leak detection.
set -euo pipefail
exec "$(dirname "$0")/../test.sh" asan
