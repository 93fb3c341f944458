#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Every C and C++ source is in the project's format.
set -euo pipefail
cd "$(dirname "$0")/../.."

scripts/format.sh --check
printf '%d sources are in the format\n' "$(git ls-files '*.h' '*.c' '*.cpp' | wc -l)"
