#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Draws docs/qn-terminal.svg: a terminal in which qn has run. Everything in it but the prompts is what
# the commands print.
# Usage: terminal-picture.sh [QN]
set -euo pipefail
source "$(dirname "$0")/lib.sh"

qn=$(realpath "${1:-$project/build/linux/bin/qn}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/bin"
ln -s "$qn" "$work/bin/qn"
export PATH="$work/bin:$PATH"
cp "$project/samples/settings.json" "$work"
printf 'a 0 0 500100.02 3000200.01\nb 1000 0 501100.03 3000200.31\nc 0 2000 500099.43 3002200.07\nd 1500 1500 501599.58 3001700.52\n' \
  >"$work/common.txt"
printf '{"name": "maps",\n "port": 8080,}\n' >"$work/broken.json"

# The session: a prompt with each command, and its output.
session() {
  local command
  cd "$work"
  while read -r command; do
    printf '$ %s\n' "$command"
    eval "$command" 2>&1 || true
  done <<'COMMANDS'
qn geo convert --from lonlat --to 4526 "112d56'19.7E,28d13'41.6N"
qn geo convert --from 4526 --to lonlat 38395859.6139,3123965.8431
qn geo estimate common.txt
qn json check broken.json
qn json set settings.json /server/port 9090 && qn json get settings.json /server/port
qn hash sha256sum settings.json
COMMANDS
}

session | awk '
  function escaped(text) {
    gsub(/&/, "\\&amp;", text); gsub(/</, "\\&lt;", text); gsub(/>/, "\\&gt;", text)
    return text
  }
  { lines[NR] = escaped($0); if (length($0) > width) width = length($0) }
  END {
    w = 24 + width * 8.4; h = 24 + NR * 18
    printf "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 %d %d\" width=\"%d\" height=\"%d\">\n", w, h, w, h
    print "<!-- SPDX-License-Identifier: MIT; drawn by scripts/terminal-picture.sh -->"
    printf "<rect width=\"%d\" height=\"%d\" rx=\"8\" fill=\"#1e2329\"/>\n", w, h
    print "<g font-family=\"DejaVu Sans Mono, Menlo, Consolas, monospace\" font-size=\"14\" xml:space=\"preserve\">"
    for (i = 1; i <= NR; i++)
      printf "<text x=\"12\" y=\"%d\" fill=\"%s\">%s</text>\n", 12 + i * 18 - 4, lines[i] ~ /^\$ / ? "#7fd1b9" : "#d8dee9", lines[i]
    print "</g>\n</svg>"
  }' >"$project/docs/qn-terminal.svg"
