#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Puts the sources of libc++ that belong to the installed headers (Debian package libc++-19-dev) into
# build/libcxx/src. They come out of Debian's source package, which is read through a list of sources
# of this script's own: the system's lists stay as they are.
set -euo pipefail
source "$(dirname "$0")/lib.sh"

source_package=llvm-toolchain-19
version=$(dpkg-query -W -f '${source:Version}' libc++-19-dev) ||
  die "libc++-19-dev is not installed; scripts/setup.sh installs it"
folder="$project/build/libcxx"

if [ -e "$folder/src/algorithm.cpp" ] && [ "$(cat "$folder/version" 2>/dev/null)" = "$version" ]; then
  exit 0
fi
step "Fetching the sources of libc++ $version"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
chmod 755 "$work" # apt reads the files as a user of its own
mkdir -p "$work/lists/partial" "$work/cache/archives/partial" "$work/package"

# The system's Debian sources, as source packages; main is all that is needed.
archive=$(grep -rhoE 'https?://[^ ]+/debian/?( |$)' /etc/apt/sources.list /etc/apt/sources.list.d 2>/dev/null |
  tr -d ' ' | head -n 1 || true)
. /etc/os-release
printf 'deb-src %s %s main\n' "${archive:-http://deb.debian.org/debian}" "$VERSION_CODENAME" >"$work/sources.list"
apt=(apt-get -q -o "Dir::Etc::sourcelist=$work/sources.list" -o Dir::Etc::sourceparts=-
  -o "Dir::State::lists=$work/lists" -o "Dir::Cache=$work/cache")
logged libcxx-update "${apt[@]}" update || die "the list of source packages could not be read"
(cd "$work/package" && logged libcxx-source "${apt[@]}" source --tar-only --download-only \
  "$source_package=$version") || die "the source package could not be had"
tar -C "$work" -xf "$work"/package/*.orig.tar.* --wildcards '*/libcxx/src/*' --strip-components=2
mkdir -p "$folder"
rm -rf "$folder/src"
mv "$work/src" "$folder/src"
printf '%s\n' "$version" >"$folder/version"
