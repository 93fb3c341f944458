#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# What the DLL imports: the system's DLLs, the Universal C Run-time and vcruntime140.dll, nothing else.
# That it is built with control-flow guard, and holds no debug information: that is in the PDB, which
# debuggers leave unread otherwise. Usage: check-module.sh LLVM_READOBJ QuarnFC.dll
set -euo pipefail

allowed='^(advapi32|kernel32|oleaut32|shlwapi|user32|wininet|vcruntime140|api-ms-win-crt-[a-z]+-l1-1-0)\.dll$'
failed=0

imports=$("$1" --coff-imports "$2" | sed -n 's/^  Name: //p' | tr '[:upper:]' '[:lower:]' | sort -u)
printf '%s\n' "$imports"
[ -n "$imports" ] || { echo "FAILED  no imports were found" && failed=1; }
if unexpected=$(grep -vE "$allowed" <<<"$imports"); then
  printf 'FAILED  unexpected: %s\n' "$unexpected"
  failed=1
fi
grep -qx 'vcruntime140.dll' <<<"$imports" || { echo "FAILED  exceptions do not go through vcruntime" && failed=1; }
"$1" --file-headers "$2" | grep -q IMAGE_DLL_CHARACTERISTICS_GUARD_CF ||
  { echo "FAILED  no control-flow guard" && failed=1; }
guarded=$("$1" --coff-load-config "$2" | sed -n 's/^  GuardCFFunctionCount: //p')
[ "${guarded:-0}" -gt 0 ] || { echo "FAILED  the table of guarded functions is empty" && failed=1; }
if "$1" --sections "$2" | grep -E '^ *Name: \.debug_'; then
  echo "FAILED  debug information in the module"
  failed=1
fi
exit "$failed"
