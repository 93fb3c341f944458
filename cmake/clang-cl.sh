#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Compiles with clang-cl, through ccache where it is installed. The source file is given by its path
# from the folder of the build: names of what is in an anonymous namespace have a hash of that path, and
# must be the same wherever the tree is; ccache takes a path that starts with a slash for an option. It
# wants to be told which compiler this is, because it looks behind the link.
# Usage: clang-cl.sh CLANG_CL OPTION... -- SOURCE
set -euo pipefail

command=("$@")
if [ $# -ge 3 ] && [ "${*: -2:1}" = -- ]; then
  source=$(realpath --no-symlinks --relative-to=. -- "${*: -1}")
  command=("${@:1:$#-2}" "$source")
fi
if command -v ccache >/dev/null; then
  export CCACHE_COMPILERTYPE=clang-cl
  exec ccache "${command[@]}"
fi
exec "${command[@]}"
