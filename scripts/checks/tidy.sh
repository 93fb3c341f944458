#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# clang-tidy over the sources of both targets: those of the native build, and what only the build for
# Windows compiles with that build's commands. The tests of a folder are read as one unit, as they are
# compiled, unless files are named.
# Usage: tidy.sh [FILE...]
set -euo pipefail
source "$(dirname "$0")/../lib.sh"
cd "$project"

# configure PRESET JOIN: the compile commands of a preset in build/tidy-PRESET, without the precompiled
# headers and the options that clang does not know. The joined tests follow the rules of tests.
configure() {
  configure_preset "$1" -B "build/tidy-$1" -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON \
    -DQUARNFC_JOIN_TESTS="$2" -DQUARNFC_BUILD_BENCH=OFF
  sed -i 's/ -fno-keep-inline-dllexport//; s/ -femit-class-debug-always//' \
    "build/tidy-$1/compile_commands.json"
  cp tests/.clang-tidy "build/tidy-$1/tests"
}

# sources PRESET: what the project itself compiles in it, but for the hosts that are compiled for the
# warnings they give.
sources() {
  sed -n 's/^ *"file": "\(.*\.c\(pp\|xx\)\)",\{0,1\}$/\1/p' "build/tidy-$1/compile_commands.json" |
    sed -n "s|^$project/||p" | grep -P '^(?!build/|tests/module/care(ful|less)_host)|/Unity/' |
    LC_ALL=C sort -u
}

# joined PRESET: the sources that are read as parts of a unit.
joined() {
  find "build/tidy-$1" -path '*/Unity/*.cxx' -exec sed -n "s|^#include \"$project/\(.*\)\"$|\1|p" {} +
}

# The system include folders of the cross compiler, apart from those that clang has itself.
cross_arguments() {
  printf '%s\n' --extra-arg-before=--target=x86_64-w64-windows-gnu --extra-arg=-nostdinc++
  x86_64-w64-mingw32-g++-posix -E -x c++ -v /dev/null 2>&1 |
    sed -n '/search starts here/,/End of/s/^ //p' |
    grep -vE '/(include-fixed|lib/gcc/[^ ]*/include)$' | sed 's/^/--extra-arg=-isystem/'
}

# tidy PRESET [ARGUMENT...]: over the files named on standard input.
tidy() {
  local preset=$1
  shift
  xargs -r -n 2 -P "$(nproc)" clang-tidy -p "build/tidy-$preset" --quiet \
    --extra-arg=-Wno-ignored-optimization-argument --extra-arg=-Wno-unknown-warning-option "$@"
}

chosen() { if [ ${#wanted[@]} -eq 0 ]; then cat; else grep -xFf <(printf '%s\n' "${wanted[@]}"); fi; }

wanted=("$@")
join=ON
[ $# -eq 0 ] || join=OFF
configure linux "$join"
configure windows OFF
mapfile -t cross < <(cross_arguments)
mapfile -t native_files < <(sources linux | chosen)
mapfile -t windows_files < <(
  comm -13 <({ sources linux && joined linux; } | LC_ALL=C sort) <(sources windows) | chosen
)
failed=0
printf '%s\n' "${native_files[@]}" | tidy linux || failed=1
printf '%s\n' "${windows_files[@]}" | tidy windows "${cross[@]}" || failed=1
[ "$failed" -eq 0 ]
printf 'clang-tidy has nothing to say about %d native and %d Windows sources\n' \
  "${#native_files[@]}" "${#windows_files[@]}"
