#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Brings the C and C++ sources into the project's format; --check only tells which are not.
# Usage: format.sh [--check] [FILE...]
set -euo pipefail
source "$(dirname "$0")/lib.sh"

command -v clang-format >/dev/null || die "clang-format is not installed (Debian: clang-format)"
arguments=(-i)
if [ "${1:-}" = --check ]; then
  arguments=(--dry-run --Werror)
  shift
fi
if [ $# -gt 0 ]; then
  clang-format "${arguments[@]}" "$@"
else
  cd "$project"
  git ls-files -z '*.h' '*.c' '*.cpp' | xargs -0 clang-format "${arguments[@]}"
fi
