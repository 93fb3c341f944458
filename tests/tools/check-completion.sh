#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# What qn writes about its commands for bash and for man works there.
# Usage: check-completion.sh QN
set -euo pipefail

qn=$1
# shellcheck disable=SC1090  # made here
source <("$qn" help --bash-completion)

# expect WORDS... -- COMPLETIONS: what bash offers for the last of the words.
expect() {
  COMP_WORDS=()
  while [ "$1" != -- ]; do
    COMP_WORDS+=("$1")
    shift
  done
  shift
  COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
  COMPREPLY=()
  _qn
  [ "${COMPREPLY[*]-}" = "$*" ] || {
    printf 'for "%s" bash offers "%s", not "%s"\n' "${COMP_WORDS[*]}" "${COMPREPLY[*]-}" "$*" >&2
    exit 1
  }
}

expect qn ge -- geo
expect qn geo con -- convert
expect qn geo convert --fo -- --force
expect qn json chec -- check
expect qn geo convert --from lonlat --dig -- --digits
expect qn geo convert poi --
expect qn hash sha256sum --ch -- --check

# groff warns of requests that it does not know and of characters that it cannot print.
warnings=$("$qn" help --man | groff -man -Tutf8 -ww -z 2>&1)
[ -z "$warnings" ] || {
  printf '%s\n' "$warnings" >&2
  exit 1
}
page=$("$qn" help --man | groff -man -Tutf8 2>/dev/null | sed 's/\x1b\[[0-9;]*m//g')
for part in NAME 'qn geo convert' --no-datum-shift 'qn json merge'; do
  grep -q -e "$part" <<<"$page" || {
    printf 'the manual page lacks "%s"\n' "$part" >&2
    exit 1
  }
done
