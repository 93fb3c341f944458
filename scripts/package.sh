#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Makes the packages in build/packages, a check sum (.sha256) and a list of contents (.spdx) for
# each, and tests every one: hosts are built and run against what it holds. The same sources give
# the same bytes.
# Usage: package.sh [windows|windows-msvc|linux]
set -euo pipefail
source "$(dirname "$0")/lib.sh"

packages="$project/build/packages"

# The time that files in packages have: that of the last commit, unless the caller says another.
cd "$project"
if [ -z "${SOURCE_DATE_EPOCH:-}" ]; then
  SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
fi
export SOURCE_DATE_EPOCH
export LC_ALL=C TZ=UTC
# Settings of the compiler cache that leave relative paths, or those of another folder, in debug
# information.
export CCACHE_BASEDIR='' CCACHE_HASHDIR=1
unset CCACHE_NOHASHDIR
umask 022

# make_packages TARGET: the files that cpack makes are put in $packages.
make_packages() {
  local preset=package-$1 out="$project/build/package-$1/packages" file
  rm -rf "$out"
  [ "$1" != windows-msvc ] || "$project/scripts/fetch-libcxx.sh"
  configure_preset "$preset"
  build_preset "$preset"
  logged "cpack-$1" cpack --config "$project/build/$preset/CPackConfig.cmake" -B "$out"
  rm -rf "$out/_CPack_Packages"
  for file in "$out"/*; do
    "$project/scripts/spdx-list.sh" "$file" >"$file.spdx"
    (cd "$out" && sha256sum "${file##*/}" >"$file.sha256")
  done
  mkdir -p "$packages"
  cp "$out"/* "$packages"
}

targets=(windows windows-msvc linux)
case ${1:-} in
  windows | windows-msvc | linux) targets=("$1") ;;
  '') rm -rf "$packages" ;;
  *) die "usage: package.sh [windows|windows-msvc|linux]" ;;
esac
for target in "${targets[@]}"; do
  step "Packages for $target"
  make_packages "$target"
  step "Testing the packages for $target"
  "$project/tests/install/check-packages.sh" "$target" "$project/build/package-$target/packages"
done
(cd "$packages" && sha256sum -- *.zip *.tar.gz *.deb 2>/dev/null) || true
