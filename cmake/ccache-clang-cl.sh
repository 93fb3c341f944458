#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Compiles with clang-cl through ccache, which wants to be told which compiler this is (it looks behind
# the link) and takes a source file whose path starts with a slash for an option.
# Usage: ccache-clang-cl.sh CLANG_CL OPTION... -- SOURCE
set -euo pipefail

export CCACHE_COMPILERTYPE=clang-cl
if [ $# -lt 3 ] || [ "${*: -2:1}" != -- ]; then
  exec ccache "$@"
fi
source=$(realpath --no-symlinks --relative-to=. -- "${*: -1}")
exec ccache "${@:1:$#-2}" "$source"
