#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The build with the Microsoft C++ ABI and all its tests under Wine. Its last line has their number,
# which counts among the tests.
set -euo pipefail
exec "$(dirname "$0")/../test-msvc-abi.sh"
