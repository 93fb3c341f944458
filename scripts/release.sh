#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds a release from clean clones of the last commit: runs every test, makes the packages and
# tests them, makes them again in another folder and compares the bytes, and puts all of it with the
# sources into build/release. The tag is left to the person who releases.
# Usage: release.sh [--no-tests]
set -euo pipefail
source "$(dirname "$0")/lib.sh"

cd "$project"
out="$project/build/release"
version=$(sed -n 's/^ *VERSION \([0-9.]*\)$/\1/p' CMakeLists.txt)
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH

check_state() {
  local news tagged
  [ -z "$(git status --porcelain)" ] || die "there are uncommitted changes"
  news=$(sed -n 's/^## \([0-9.]*\).*/\1/p' NEWS.md | head -n 1)
  [ "$news" = "$version" ] || die "NEWS.md begins with $news, CMakeLists.txt says $version"
  grep -q "\"version\": \"$version\"" packaging/vcpkg/vcpkg.json ||
    die "packaging/vcpkg/vcpkg.json has another version than $version"
  grep -q "version = \"$version\"" packaging/conan/conanfile.py ||
    die "packaging/conan/conanfile.py has another version than $version"
  if tagged=$(git rev-parse -q --verify "refs/tags/v$version^{commit}"); then
    [ "$tagged" = "$(git rev-parse HEAD)" ] || die "v$version is already another commit"
  fi
}

# clone NAME: a fresh clone of the last commit, of that one even if another one has come meanwhile.
commit=$(git rev-parse HEAD)
clone() {
  git clone -q --no-hardlinks "$project" "$out/$1"
  git -C "$out/$1" checkout -q --detach "$commit"
}

check_state
rm -rf "$out"
mkdir -p "$out"
clone first
if [ "${1:-}" != --no-tests ]; then
  step "Every test, in a clean clone"
  "$out/first/scripts/test.sh"
fi
step "The packages, in a clean clone"
"$out/first/scripts/package.sh"
step "The same packages, in another folder"
clone the-second-of-them
"$out/the-second-of-them/scripts/package.sh"
diff -r "$out/first/build/packages" "$out/the-second-of-them/build/packages" ||
  die "the packages of two builds differ"

step "The release"
mv "$out/first/build/packages" "$out/packages"
source_name=quarnfc-$version
git archive --format=tar --prefix="$source_name/" "$commit" | gzip -n -9 >"$out/packages/$source_name.tar.gz"
(cd "$out/packages" && sha256sum "$source_name.tar.gz" >"$source_name.tar.gz.sha256" &&
  cat -- *.sha256 | LC_ALL=C sort -k 2 >SHA256SUMS)
rm -rf "$out/first" "$out/the-second-of-them"
cat "$out/packages/SHA256SUMS"
printf 'build/release/packages is complete. To release it: git tag -a v%s -m "QuarnFC %s"\n' \
  "$version" "$version"
