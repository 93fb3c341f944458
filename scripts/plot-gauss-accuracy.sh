#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Draws docs/gauss-accuracy.svg from the library's own results on Linux.
# Usage: scripts/plot-gauss-accuracy.sh
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset linux >/dev/null
cmake --build --preset linux --target gauss_accuracy
build/linux/bin/gauss_accuracy docs/gauss-accuracy.svg
echo "docs/gauss-accuracy.svg is up to date"
