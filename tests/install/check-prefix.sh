#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds hosts against the library that is installed in a folder, and runs them.
# Usage: check-prefix.sh windows|linux FOLDER
#        check-prefix.sh windows-msvc FOLDER BUILD_FOLDER
#                                     with the run-time part that is in the build folder
set -euo pipefail
source "$(dirname "$0")/lib.sh"

target=$1
prefix=$(cd "$2" && pwd)
# shellcheck disable=SC2034 # lib.sh uses it
runtime_build=${3:-}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LC_ALL=C

# The package configuration of CMake, for a project in C++ and for one in C alone.
check_cmake() {
  local configuration
  configuration=$(dirname "$(find "$prefix" -name QuarnFCConfig.cmake)")
  configure "$target" "$here/outside" "$work/outside" "-DQuarnFC_DIR=$configuration"
  quiet cmake --build "$work/outside"
  run "$target" "$work/outside/host17"
  run "$target" "$work/outside/host20"
  configure "$target" "$here/outside_c" "$work/outside_c" "-DQuarnFC_DIR=$configuration"
  quiet cmake --build "$work/outside_c"
  run "$target" "$work/outside_c/host_c"
}

# The compiler called by hand with what pkg-config says, in the dialect of GNU's compilers.
check_pkg_config() {
  local compiler=g++ flags folder
  [ "$target" != windows-msvc ] || return 0
  command -v pkg-config >/dev/null || return 0
  [ "$target" != windows ] || compiler=x86_64-w64-mingw32-g++-posix
  folder=$(dirname "$(find "$prefix" -name quarnfc.pc)")
  mkdir "$work/by_hand"
  read -ra flags < <(PKG_CONFIG_LIBDIR="$folder" pkg-config --cflags --libs quarnfc)
  if [ "$target" = windows ]; then
    quiet "$compiler" -std=c++17 "$here/outside/host.cpp" -o "$work/by_hand/host.exe" "${flags[@]}"
    cp "$prefix"/bin/*.dll "$work/by_hand"
  else
    quiet "$compiler" -std=c++17 "$here/outside/host.cpp" -o "$work/by_hand/host" "${flags[@]}" \
      "-Wl,-rpath,$(dirname "$folder")"
  fi
  run "$target" "$work/by_hand/host"
}

# Links of the documentation lead to files that are installed, too.
check_documentation() {
  local folder
  folder=$(dirname "$(find "$prefix" -name README.zh-CN.md)")
  quiet "$source/scripts/check-docs.sh" --links "$folder"
  echo "ok: links of the documentation"
}

# The host program starts, and what man and bash read of it is there and belongs to it.
check_tool() {
  local qn="$prefix/bin/qn"
  if [ "$target" != linux ]; then
    quiet "$source/scripts/run-wine.sh" "$qn.exe" --version
    echo "ok: qn"
    return
  fi
  quiet diff <("$qn" help --man) <(zcat -f "$prefix"/share/man/man1/qn.1*)
  quiet diff <("$qn" help --bash-completion) "$prefix/share/bash-completion/completions/qn"
  echo "ok: manual page and completion of qn"
}

forgets_paths -I "$prefix"
check_documentation
check_tool
check_cmake
check_pkg_config
