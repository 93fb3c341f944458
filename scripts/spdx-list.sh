#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Prints the contents of a package as an SPDX 2.3 document.
# Usage: spdx-list.sh PACKAGE.zip|PACKAGE.tar.gz|PACKAGE.deb
set -euo pipefail
source "$(dirname "$0")/lib.sh"

package=$1
name=$(basename "$package")
version=$(sed -n 's/^ *VERSION \([0-9.]*\)$/\1/p' "$project/CMakeLists.txt")
content=$(mktemp -d)
trap 'rm -rf "$content"' EXIT
export LC_ALL=C

unpack() {
  case $package in
    *.zip) unzip -q "$package" -d "$content" ;;
    *.tar.gz) tar -xzf "$package" -C "$content" ;;
    *.deb) dpkg-deb -x "$package" "$content" ;;
    *) die "not a package: $package" ;;
  esac
}

# The licence of a file; what is not named here is this project's own.
licence_of() {
  case $1 in
    */libstdc++-6.dll | */libgcc_s_seh-1.dll) echo 'GPL-3.0-or-later WITH GCC-exception-3.1' ;;
    */libwinpthread-1.dll) echo 'MIT AND BSD-3-Clause' ;;
    *-msvc*/bin/*.dll | *-msvc*/bin/*.exe) echo 'MIT AND Apache-2.0 WITH LLVM-exception AND ZPL-2.1' ;;
    */qn.exe) echo 'MIT AND Zlib AND ZPL-2.1' ;;
    *-mingw*/bin/*.dll) echo 'MIT AND ZPL-2.1' ;;
    */GPL-3 | */gcc-copyright.txt | */mingw-w64-copyright.txt | */libcxx-copyright.txt) echo NOASSERTION ;;
    *) echo MIT ;;
  esac
}

sum() { "$1" "$2" | cut -d ' ' -f 1; }

unpack
cd "$content"
mapfile -d '' files < <(find . -type f -print0 | sort -z)
[ "${#files[@]}" -gt 0 ] || die "there is no file in $name"
# By SPDX 2.3: the sum of all files' sums in order, one behind the other.
verification=$(sha1sum -- "${files[@]}" | cut -d ' ' -f 1 | sort | tr -d '\n' | sha1sum |
  cut -d ' ' -f 1)
package_sum=$(cd - >/dev/null && sum sha256sum "$package")

cat <<HEAD
SPDXVersion: SPDX-2.3
DataLicense: CC0-1.0
SPDXID: SPDXRef-DOCUMENT
DocumentName: $name
DocumentNamespace: https://quarnfc.invalid/spdx/$name-$package_sum
Creator: Organization: The QuarnFC authors
Creator: Tool: scripts/spdx-list.sh
Created: $(date -u -d "@${SOURCE_DATE_EPOCH:-0}" +%Y-%m-%dT%H:%M:%SZ)
Relationship: SPDXRef-DOCUMENT DESCRIBES SPDXRef-Package

PackageName: QuarnFC
SPDXID: SPDXRef-Package
PackageVersion: $version
PackageFileName: $name
PackageSupplier: Organization: The QuarnFC authors
PackageDownloadLocation: NOASSERTION
FilesAnalyzed: true
PackageVerificationCode: $verification
PackageChecksum: SHA256: $package_sum
PackageLicenseConcluded: NOASSERTION
PackageLicenseInfoFromFiles: NOASSERTION
PackageLicenseDeclared: MIT
PackageCopyrightText: Copyright (c) 2026 The QuarnFC authors
HEAD
number=0
for file in "${files[@]}"; do
  number=$((number + 1))
  licence=$(licence_of "$file")
  cat <<FILE

FileName: $file
SPDXID: SPDXRef-File-$number
FileChecksum: SHA1: $(sum sha1sum "$file")
FileChecksum: SHA256: $(sum sha256sum "$file")
LicenseConcluded: $licence
LicenseInfoInFile: NOASSERTION
FileCopyrightText: NOASSERTION
FILE
done
