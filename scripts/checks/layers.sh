#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Reads every #include of the library and prints which room uses which. Fails when an arrow points up
# or sideways, when a public header includes anything but public headers and the standard library,
# when anything above platform/ reaches for the platform itself, or when a file takes in a whole
# namespace.
set -euo pipefail
cd "$(dirname "$0")/../.."

# A directive at the start of a line holds for the rest of its file; the names used say more. The
# standard's literals are meant to be taken in that way.
if git grep -nE '^using namespace ' -- '*.h' '*.cpp' | grep -v ' std::[a-z_]*literals;'; then
  printf 'whole namespaces are taken in by files\n'
  exit 1
fi

# The includes of the library as lines "FILE INCLUDED", the brackets or quotes kept.
includes() {
  git ls-files -- '*.h' '*.cpp' | grep -E '^(include|runtime|platform|core|json|geo|net|codec|io|c)/' |
    xargs grep -HE '^[[:space:]]*#[[:space:]]*include' |
    sed -E 's/^([^:]*):[[:space:]]*#[[:space:]]*include[[:space:]]*([<"][^>"]*[>"]).*/\1 \2/'
}

# The rooms of public headers as lines "HEADER ROOM": those whose source has another name, then those
# with a source of the same name; the first line holds. What stands in neither may be used by every
# room.
header_rooms() {
  printf '%s\n' \
    'qn_string.h core/text' 'string_utils.h core/text' \
    'json_value.h json' 'json_object.h json' 'json_files.h json' 'error_json.h json' \
    'geographic.h geo' 'internet.h net' 'csv.h io' 'version.h boundary'
  git ls-files -- '*.cpp' | grep -E '^(core|json|geo|net|codec|io)/' |
    sed -E 's|(.*)/([^/]*)\.cpp|\2.h \1|'
}

awk '
  function room_of(path) {
    if (path ~ /^include\/quarnfc\/(c|ext)\//) return path ~ /\/c\// ? "c" : "ext"
    if (path ~ /^include\/quarnfc\//) {
      sub(/.*\//, "", path)
      return path in header_room ? header_room[path] : "boundary"
    }
    return path ~ /^core\// ? core_room(path) : substr(path, 1, index(path, "/") - 1)
  }
  function core_room(path, part) { split(path, part, "/"); return part[1] "/" part[2] }
  function wrong(text) { print "   " file ": " text; errors++ }
  # Whether a room may use another.
  function allowed(from, to) { return index(" " below[from] " ", " " to " ") > 0 }

  BEGIN {
    below["boundary"] = ""
    below["platform"] = "boundary"
    below["core/memory"] = below["platform"] " platform"
    below["core/text"] = below["core/memory"] " core/memory"
    below["core/objects"] = below["core/text"] " core/text"
    below["core/collections"] = below["core/objects"] " core/objects"
    below["core/diagnostics"] = below["core/text"] " core/text"
    core = below["core/collections"] " core/collections core/diagnostics"
    below["json"] = below["geo"] = below["net"] = below["codec"] = below["io"] = core
    # Two faces on all of it: headers of additions that hosts compile, and flat functions for C.
    below["ext"] = core " json geo net codec io"
    below["c"] = below["ext"] " ext"
    below["runtime"] = ""  # takes the place of a compiler library
  }
  NR == FNR { if (!($1 in header_room)) header_room[$1] = $2; next }
  $1 ~ /^include\/quarnfc\/(c\/)?quarnfc[.]h$/ { next }  # includes all by design
  {
    file = $1
    name = substr($2, 2, length($2) - 2)
    from = room_of(file)
    quoted = $2 ~ /^"/
    public_target = name ~ /^quarnfc\//
    # The start of a program knows its own folder only.
    if (from == "runtime" && quoted && name !~ /\//) next
    if (quoted && !public_target && name !~ /\//) wrong("names " $2 " without its folder")
    if (file ~ /^include\//) {
      if (quoted && !public_target) wrong("is public and includes " $2)
      if (!quoted && !public_target && name ~ /[.]h$/ && name !~ /^std(def|int|bool)[.]h$/)
        wrong("is public and includes " $2)
    } else if (from != "platform" && from != "runtime") {
      if (!quoted && !public_target && name ~ /[.\/]/ && name !~ /^[a-z]*intrin[.]h$/)
        wrong("is above platform/ and includes " $2)
      if (name ~ /^platform\/[^\/]*\//) wrong("reaches into " name)
      if (name == "platform/internet.h" && from != "net") wrong("uses the internet functions")
    }
    if (quoted && !public_target) to = room_of(name)
    else if (public_target) to = room_of("include/" name)
    else next
    if (to == from) next
    arrows++
    uses[from, to]++
    if (!allowed(from, to)) wrong(from " does not use " to ": " $2)
  }
  END {
    count = split("c ext io codec net geo json core/collections core/diagnostics core/objects " \
                  "core/text core/memory platform runtime boundary", rooms, " ")
    for (i = 1; i <= count; i++) {
      line = ""
      for (j = 1; j <= count; j++) {
        n = uses[rooms[i], rooms[j]]
        if (n) line = line " " rooms[j] " (" n ")"
      }
      printf "   %-17s ->%s\n", rooms[i], line == "" ? " nothing" : line
    }
    if (errors) { printf "%d includes break the layers\n", errors; exit 1 }
    printf "%d includes between rooms, all of them downward\n", arrows
  }' <(header_rooms) <(includes)
