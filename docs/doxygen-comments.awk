# SPDX-License-Identifier: MIT
# Turns the plain comments of the public headers into comments that Doxygen reads: those before a
# declaration, and those behind an enumerator or a field. The banner of a file becomes the file's
# description, and what is indented under "Example:" becomes code.

# Nothing in a plain comment is markup.
function escape(text) {
  gsub(/[\\@<>#%|*"&]/, "\\\\&", text)
  return text
}

# A line is held back until it is known whether it is the last one of an example.
function emit(line) {
  if (held) print pending
  pending = line
  held = 1
}

function end_code() {
  if (!code) return
  pending = pending " @endcode"
  code = 0
}

function comment(indent, text) {
  if (code && text !~ /^(   *|$)/) end_code()
  if (code) { emit(indent "/// " text); return }
  if (text ~ /^Example:$/) { emit(indent "/// Example: @code{.cpp}"); code = 1; return }
  emit(indent "/// " escape(text))
}

NR == 1 && /SPDX-License-Identifier/ { emit(""); next }
!first { first = NR }
NR == first && /^\/\/ / { emit("/// @file"); comment("", substr($0, 4)); next }
NR == first && /^\/\* / { emit("/** @file"); emit(escape(substr($0, 4))); block = 1; next }
block && /\*\/$/ { sub(/\*\/$/, ""); emit(escape($0) " */"); block = 0; next }
block { sub(/^ \* ?/, ""); emit(" * " escape($0)); next }
/^ *\/\* .*\*\/$/ { at = index($0, "/* "); emit(substr($0, 1, at - 1) "/** " escape(substr($0, at + 3, length($0) - at - 4)) "*/"); next }
/^ *\/\* / { at = index($0, "/* "); emit(substr($0, 1, at - 1) "/** " escape(substr($0, at + 3))); block = 1; next }
# Rules between groups of members, and the paragraphs below them, belong to no declaration.
/^ *\/\/ ---/ { rule = 1; end_code(); emit(""); next }
rule && /^ *\/\// { emit(""); next }
{ rule = 0 }
/^ *\/\// { at = index($0, "//"); comment(substr($0, 1, at - 1), substr($0, at + 3)); next }
{ end_code() }
/[;,{] *\/\/ / { at = index($0, "// "); emit(substr($0, 1, at - 1) "///< " escape(substr($0, at + 3))); next }
{ emit($0) }
END { end_code(); if (held) print pending }
