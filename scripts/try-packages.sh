#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The packages as a stranger meets them, by hand before a release: a fresh Debian in a folder, with
# nothing of this tree but build/packages, installs the Debian packages, a compiler and CMake, and
# builds and runs outside projects; then the same with the ZIPs for Windows under Wine, by MinGW-w64
# and by clang with the Microsoft C++ ABI. In the place of the libraries that come with Visual C++ the
# last one gets those of build/package-windows-msvc.
# Needs root, debootstrap and the network; takes about ten minutes and 3 GB.
# Usage: try-packages.sh FOLDER    a new folder outside of the tree; it is left for a closer look
set -euo pipefail
source "$(dirname "$0")/lib.sh"

packages="$project/build/packages"
if [ $# -ne 1 ] || [ -e "$1" ]; then die "usage: try-packages.sh FOLDER, which must not exist"; fi
[ "$(id -u)" -eq 0 ] || die "only root makes another system"
for package in "$packages"/{libquarnfc1_*.deb,*-windows-x64-mingw.zip,*-windows-x64-msvc.zip}; do
  [ -f "$package" ] || die "scripts/package.sh comes first: there is no $package"
done
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
  cp "$packages"/*.deb "$packages"/*-windows-x64-{mingw,msvc}.zip "$root/packages"
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

# unzip_package KIND: the ZIP of that kind in the folder /KIND; sets $configuration to the folder of its
# package configuration.
unzip_package() {
  logged try-unzip inside sh -c "unzip -q /packages/*-windows-x64-$1.zip -d /$1"
  configuration=/$1/$(cd "$root/$1" && echo quarnfc-*)/lib/cmake/QuarnFC
}

# install_debian NAME...: the Debian packages of those names.
install_debian() {
  local name files=()
  for name in "$@"; do files+=("/packages/$(cd "$packages" && echo "$name"_*.deb)"); done
  install_packages "${files[@]}"
}

# The host program with what its package asks for alone.
try_tools() {
  install_debian libquarnfc1 quarnfc-tools
  logged try-tools inside qn --version
  printf 'ok: %s\n' "$(tail -n 1 "$logs/try-tools.log")"
}

# The record of a crash names functions and lines of the library where its debug information is installed.
try_record() {
  local frame
  cp "$project/tests/core/diagnostics/crash_host_posix.cpp" "$root/hosts"
  logged try-record inside g++ -std=c++17 -g -fshort-wchar /hosts/crash_host_posix.cpp -pthread \
    -lQuarnFC -o /linux/crash_host
  inside /linux/crash_host Check /linux/report >/dev/null 2>&1 || true
  install_debian libquarnfc1-dbg
  logged try-record inside sh -c 'quarnfc-resolve /usr/lib/log/Check*.dmp'
  frame='DbgDumpErrorFileEx(.*/usr/src/quarnfc-.*/core/diagnostics/crash_dump.cpp:[0-9]'
  grep -q "$frame" "$logs/try-record.log" || die "no such frame in $logs/try-record.log: $frame"
  printf 'ok: the record of a crash\n'
}

# gdb shows the library's classes without being told anything.
try_printers() {
  cp "$project"/tests/debug/{debug_host.cpp,check-gdb.sh,expected.txt} "$root/hosts"
  logged try-printers inside g++ -g -O0 -std=c++17 -fshort-wchar -Wno-delete-non-virtual-dtor \
    /hosts/debug_host.cpp -lQuarnFC -o /linux/debug_host
  install_packages gdb
  logged try-printers inside /hosts/check-gdb.sh /linux/debug_host
  cat "$logs/try-printers.log"
}

try_linux() {
  try_tools
  install_packages g++ cmake make
  install_debian libquarnfc-dev
  build_and_run linux '' --
  try_record
  try_printers
}

try_mingw() {
  install_packages g++-mingw-w64-x86-64-posix wine wine64 unzip
  unzip_package mingw
  # A stranger copies the tool-chain file, as the documentation says.
  cp "$project/cmake/toolchain-mingw-w64.cmake" "$root/hosts"
  logged try-wineboot inside wineboot --init
  build_and_run windows-mingw wine -- "-DQuarnFC_DIR=$configuration" \
    -DCMAKE_TOOLCHAIN_FILE=/hosts/toolchain-mingw-w64.cmake
}

# What a stranger has of Visual C++: a compiler, its headers and its libraries.
copy_visual_cpp() {
  local folder="$root/visual-cpp" built="$project/build/package-windows-msvc"
  mkdir -p "$folder/build/runtime"
  (cd "$project" && cp -r --parents cmake/toolchain-msvc-abi.cmake cmake/clang-cl.sh \
    runtime/include tests/install/toolchain-visual-cpp.cmake "$folder")
  cp -a "$built/imports" "$folder/build"
  cp "$built"/runtime/*.lib "$folder/build/runtime"
}

try_msvc() {
  install_packages clang-19 clang-tools-19 lld-19 llvm-19 libc++-19-dev
  unzip_package msvc
  copy_visual_cpp
  build_and_run windows-msvc wine -- "-DQuarnFC_DIR=$configuration" \
    -DCMAKE_TOOLCHAIN_FILE=/visual-cpp/tests/install/toolchain-visual-cpp.cmake \
    -DQUARNFC_RUNTIME_BUILD=/visual-cpp/build
}

step "A fresh Debian in $root"
make_system
step "The Debian packages"
try_linux
step "The ZIP for MinGW-w64"
try_mingw
step "The ZIP for Visual C++"
try_msvc
