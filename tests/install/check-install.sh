#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs a build into an empty folder, moves that folder, and builds and runs hosts against it.
# Usage: check-install.sh windows|windows-msvc|linux BUILD_FOLDER
set -euo pipefail
source "$(dirname "$0")/lib.sh"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

quiet cmake --install "$2" --prefix "$work/installed"
mv "$work/installed" "$work/moved"
[[ $1 != windows* ]] || export WINEPREFIX="${WINEPREFIX:-$2/wine}"
"$here/check-prefix.sh" "$1" "$work/moved" "$2"
