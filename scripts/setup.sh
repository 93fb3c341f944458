#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs what building and testing need on Debian 12: packages, and the Chinese locale that gives
# Windows programs under Wine code page 936. Does nothing when everything is there.
# Usage: setup.sh            for scripts/test.sh and scripts/demo.sh
#        setup.sh --checks   for scripts/check.sh, too
set -euo pipefail
source "$(dirname "$0")/lib.sh"

packages=(
  # Building.
  cmake ninja-build g++ g++-mingw-w64-x86-64-posix
  # The HTTP client off Windows.
  libcurl4-openssl-dev libssl-dev
  # Compressed bodies in qn http, on both targets.
  zlib1g-dev libz-mingw-w64-dev
  # Running Windows programs.
  wine wine64 locales
  # Tests: their framework, a web server, and independent implementations to compare with.
  # (clang prints the layouts of classes under the Microsoft C++ ABI.)
  googletest clang-14 nginx-light openssl libgeographiclib-dev libproj-dev python3 groff
  # Packages, and the tests of what is installed.
  doxygen dpkg-dev gdb pkg-config unzip
)
if [ "${1:-}" = --checks ]; then
  packages+=(
    # What reads the sources; the run-time of the fuzzers; the benchmarks and their peers.
    clang-format clang-tidy shellcheck pmccabe valgrind libclang-rt-14-dev gcovr
    libbenchmark-dev rapidjson-dev nlohmann-json3-dev
    # What Debian says about packages.
    lintian
    # The build with the Microsoft C++ ABI; its sources of libc++ are unpacked.
    clang-19 clang-tools-19 lld-19 llvm-19 libc++-19-dev xz-utils
  )
fi

missing_packages() {
  local package
  for package in "${packages[@]}"; do
    case $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true) in
      installed) ;;
      *) printf '%s\n' "$package" ;;
    esac
  done
}

apt() {
  as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=300 "$@"
}

install_packages() {
  local missing
  mapfile -t missing < <(missing_packages)
  [ "${#missing[@]}" -eq 0 ] && return
  step "Installing Debian packages: ${missing[*]}"
  logged apt-update apt update || die "the package lists could not be read"
  logged apt-install apt install --no-install-recommends "${missing[@]}" ||
    die "the packages could not be installed"
}

# create_locale LANGUAGE: makes the locale LANGUAGE.UTF-8.
create_locale() {
  locale -a | grep -qix "$1\.utf-\?8" && return
  step "Creating the locale $1.UTF-8"
  logged localedef as_root localedef -i "$1" -f UTF-8 "$1.UTF-8" ||
    die "the locale $1.UTF-8 could not be created"
}

if ! { command -v apt-get && command -v dpkg-query; } >/dev/null; then
  die "this script sets up Debian 12 and systems like it with apt-get; elsewhere install what" \
    "corresponds to: ${packages[*]}, and the locale zh_CN.UTF-8"
fi
install_packages
create_locale zh_CN
create_locale de_DE  # a decimal comma, for the tests
