#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The packages as a stranger meets them, by hand before a release: a fresh Debian in a folder, with
# nothing of this tree but build/packages, installs the Debian packages, a compiler and CMake, and
# builds and runs outside projects; then the same with the ZIP for Windows, MinGW-w64 and Wine.
# Needs root, debootstrap and the network; takes about ten minutes and 3 GB.
# Usage: try-packages.sh FOLDER    a new folder outside of the tree; it is left for a closer look
set -euo pipefail
source "$(dirname "$0")/lib.sh"

packages="$project/build/packages"
if [ $# -ne 1 ] || [ -e "$1" ]; then die "usage: try-packages.sh FOLDER, which must not exist"; fi
[ "$(id -u)" -eq 0 ] || die "only root makes another system"
compgen -G "$packages/libquarnfc1_*.deb" >/dev/null || die "scripts/package.sh comes first"
root=$(realpath -m "$1")
case $root/ in "$project"/*) die "$root lies in the tree" ;; esac

# inside COMMAND...: in the other system, which knows nothing of the environment here. Wine looks into
# /proc; it is mounted for the command alone.
inside() {
  # shellcheck disable=SC2016  # the inner shell expands them
  unshare --mount sh -c 'mount -t proc proc "$0/proc" && exec chroot "$0" "$@"' "$root" \
    /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \
    DEBIAN_FRONTEND=noninteractive WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml= "$@"
}

install_packages() { logged "try-apt" inside apt-get install -y --no-install-recommends "$@"; }

make_system() {
  logged try-debootstrap debootstrap --variant=minbase bookworm "$root" \
    "${DEBIAN_MIRROR:-http://deb.debian.org/debian}"
  cp /etc/resolv.conf "$root/etc/resolv.conf"
  logged try-update inside apt-get update
  mkdir "$root/packages" "$root/hosts"
  cp "$packages"/*.deb "$packages"/*-windows-x64-mingw.zip "$root/packages"
  cp -r "$project/tests/install/outside" "$project/tests/install/outside_c" "$root/hosts"
}

# build_and_run BUILD RUNNER -- OPTION...: the outside projects, configured with the options.
build_and_run() {
  local build=$1 runner=$2 host said
  for host in outside outside_c; do
    logged "try-$build-$host" inside cmake -S "/hosts/$host" -B "/$build/$host" "${@:4}"
    logged "try-$build-$host" inside cmake --build "/$build/$host"
  done
  for host in outside/host17 outside/host20 outside_c/host_c; do
    [ -f "$root/$build/$host" ] || host+=.exe
    # shellcheck disable=SC2086  # no runner is no word
    said=$(inside $runner "/$build/$host" 2>&1 | tr -d '\r') || true
    [ "$said" = ok ] || die "$build/$host says: $said"
    printf 'ok: %s\n' "$build/$host"
  done
}

try_linux() {
  install_packages g++ cmake make
  install_packages "/packages/$(cd "$packages" && echo libquarnfc1_*.deb)" \
    "/packages/$(cd "$packages" && echo libquarnfc-dev_*.deb)"
  build_and_run linux '' --
}

try_windows() {
  local folder
  install_packages g++-mingw-w64-x86-64-posix wine wine64 unzip
  logged try-unzip inside sh -c "unzip -q /packages/*-windows-x64-mingw.zip -d /zip"
  folder=$(cd "$root/zip" && echo quarnfc-*)
  # A stranger copies the tool-chain file, as the documentation says.
  cp "$project/cmake/toolchain-mingw-w64.cmake" "$root/hosts"
  logged try-wineboot inside wineboot --init
  build_and_run windows wine -- -DCMAKE_TOOLCHAIN_FILE=/hosts/toolchain-mingw-w64.cmake \
    "-DQuarnFC_DIR=/zip/$folder/lib/cmake/QuarnFC"
}

step "A fresh Debian in $root"
make_system
step "The Debian packages"
try_linux
step "The ZIP for Windows"
try_windows
