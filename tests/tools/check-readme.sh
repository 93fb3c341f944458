#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# The tables of commands on the README pages hold the commands and subcommands that qn lists.
# Usage: check-readme.sh QN PAGE...
set -euo pipefail

qn=$1
shift
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The names that a help text lists under "Commands:".
listed() { sed -n '/^Commands:/,$s/^  \([a-z0-9-]\{1,\}\)  *[A-Z].*/\1/p'; }

sorted() { sort | paste -sd ' '; }

for command in $("$qn" --help | listed); do
  printf '%s: %s\n' "$command" "$("$qn" "$command" --help | listed | sorted)"
done >"$work/commands"
[ "$(wc -l <"$work/commands")" -gt 5 ]

for page in "$@"; do
  # shellcheck disable=SC2016  # back quotes of Markdown
  while IFS='|' read -r _ command subcommands _; do
    command=${command//[\` ]/}
    printf '%s: %s\n' "${command#qn}" "$(tr -s ', ' '\n' <<<"$subcommands" | grep . | sorted)"
  done < <(grep '^| `qn ' "$page" | grep -v '^| `qn help`') | diff "$work/commands" - >"$work/difference" || {
    printf '%s has other commands (>) than qn lists (<)\n' "$page" >&2
    cat "$work/difference" >&2
    exit 1
  }
done
