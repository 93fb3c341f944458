#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Checks the documentation: links lead to files, Chinese pages have the contents and the code of
# their English ones, pages of families start with code, and every public function is named on a
# page. Prints how many there are.
# Usage: check-docs.sh [REFERENCE]      the folder of Doxygen's XML; without it functions are not counted
#        check-docs.sh --links FOLDER   only the links, of the pages in another folder
set -euo pipefail
source "$(dirname "$0")/lib.sh"

cd "$project"
export LC_ALL=C
failed=0

complain() {
  printf '%s\n' "$*" >&2
  failed=1
}

if [ "${1:-}" = --links ]; then
  mapfile -t pages < <(find "$2" -name '*.md')
else
  mapfile -t pages < <(git ls-files --cached --others --exclude-standard '*.md')
fi

# The targets of the links of a page, without code and without addresses of the web.
links_of() {
  # shellcheck disable=SC2016  # back quotes of Markdown
  awk '/^ *```/ { code = !code; next } !code' "$1" | sed 's/`[^`]*`//g' |
    grep -o ']([^)]*)' | sed 's/^](//; s/)$//' | grep -v '^[a-z]*:' || true
}

check_links() {
  local page link count=0
  for page in "${pages[@]}"; do
    while read -r link; do
      count=$((count + 1))
      [ -e "$(dirname "$page")/${link%%#*}" ] || [ "${link#\#}" != "$link" ] ||
        complain "$page: no such file: $link"
    done < <(links_of "$page")
  done
  printf '%d pages, %d links\n' "${#pages[@]}" "$count"
}

# The levels of a page's headings and its code blocks, line by line. Indented code counts as well.
skeleton_of() {
  awk '/^```/ { code = !code; print; next }
       code { print; next }
       /^#+ / { sub(/ .*/, ""); print; next }
       /^    / { print }
       /^\| *`[^`]*` *\|/ { split($0, cells, "|"); print "row" cells[2] }
       /^\|/ { rows++ }
       END { print rows + 0, "rows of tables" }' "$1" | sed 's/ *$//'
}

# same_skeleton ENGLISH CHINESE
same_skeleton() {
  local difference
  difference=$(diff <(skeleton_of "$1") <(skeleton_of "$2")) ||
    complain "$1 and $2 differ in contents or code:" "$difference"
}

# translated ENGLISH CHINESE: both are there, with the same contents.
translated() {
  if [ ! -f "$1" ] || [ ! -f "$2" ]; then
    complain "$1 and $2 are not both there"
  else
    same_skeleton "$1" "$2"
  fi
}

check_translations() {
  local page count=0
  for page in README SECURITY CONTRIBUTING; do
    translated "$page.md" "$page.zh-CN.md"
    count=$((count + 1))
  done
  while read -r page; do
    translated "docs/$page" "docs/zh/$page"
    count=$((count + 1))
  done < <(find docs docs/zh -maxdepth 1 -name '*.md' -printf '%f\n' | sort -u)
  printf '%d pages in English and Chinese\n' "$count"
}

# The page of a family starts with lines of code that work; the build compiles them.
check_families() {
  local page count=0
  while read -r page; do
    count=$((count + 1))
    awk '/^## / { exit } /^```c(pp)?$/ { found = 1; exit } END { exit !found }' "docs/$page" ||
      complain "docs/$page does not start with lines of code"
  done < <(sed -n '/^## Families/,/^## Changing/s/^| \[\([^]]*\)\].*/\1/p' docs/README.md)
  [ "$count" -gt 10 ] || complain "docs/README.md lists $count families"
  printf '%d families\n' "$count"
}

# The public functions, as CLASS::NAME or NAME, of Doxygen's XML; a class that is private has none.
public_functions() {
  awk '/<compoundname>/ { gsub(/.*<compoundname>|<\/compoundname>.*|&lt;.*&gt;/, ""); scope = $0 ~ /\.h$/ ? "" : $0 "::" }
       /<compounddef / { open = !/prot="private"/ }
       /<memberdef / { wanted = open && /kind="function"/ && /prot="public"/ }
       wanted && /^ *<name>/ { gsub(/ *<\/?name>/, ""); print scope $0; wanted = 0 }' "$1"/*.xml |
    grep -v -e operator -e '~' | awk -F'::' 'NF == 1 || $NF != $(NF - 1)' | sort -u
}

# A function is covered by a page that names both its class or namespace and itself.
check_functions() {
  public_functions "$1" | awk '
    # The pages come first: their words.
    FILENAME != "-" {
      gsub(/[^A-Za-z0-9_]+/, " ")
      n = split($0, words, " ")
      for (i = 1; i <= n; i++) on[FILENAME, words[i]] = 1
      pages[FILENAME] = 1
      next
    }
    {
      total++
      n = split($0, parts, "::")
      for (page in pages)
        if (((page, parts[n]) in on) && (n == 1 || ((page, parts[n - 1]) in on))) { covered++; next }
      print "on no page: " $0 > "/dev/stderr"
    }
    END {
      printf "%d of %d public functions are on a page\n", covered, total
      exit !(total > 200 && covered == total)
    }' docs/*.md - || failed=1
}

check_links
[ "${1:-}" != --links ] || exit "$failed"
check_translations
check_families
[ $# -eq 0 ] || check_functions "$1"
exit "$failed"
