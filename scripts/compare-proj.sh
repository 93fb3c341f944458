#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Compares qn geo convert with PROJ's cs2cs (Debian package proj-bin): the largest difference in
# millimetres of every family of codes, there and back, at points up to 2.8 degrees off the central
# meridian from 18 to 54 degrees of latitude. Prints a table; exit code 1 when one exceeds 0.1 mm.
# Usage: compare-proj.sh [QN]
set -euo pipefail
source "$(dirname "$0")/lib.sh"

qn=${1:-$project/build/linux/bin/qn}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# points MERIDIAN SIGN: longitude and latitude, a line each.
points() {
  awk -v l0="$1" -v sign="$2" 'BEGIN {
    for (lat = 18; lat <= 54; lat += 4)
      for (d = -2.8; d <= 2.8; d += 0.7) printf "%.9f %.9f\n", l0 + d, sign * (lat + d / 7)
  }'
}

# Columns one and two of the second file in the order in which they are near those of the first: PROJ
# has the order of axes of the definition, qn has east first.
like() {
  awk 'function far(a, b) { return a > b ? a - b : b - a }
       NR == FNR { x[FNR] = $1; y[FNR] = $2; next }
       { straight = far($1, x[FNR]) + far($2, y[FNR])
         turned = far($2, x[FNR]) + far($1, y[FNR])
         print (straight <= turned) ? $1 " " $2 : $2 " " $1 }' "$1" "$2"
}

# The largest difference of two files of two columns, times a factor.
largest() {
  paste "$1" "$2" | awk -v factor="$3" '
    { for (i = 1; i <= 2; i++) {
        d = ($i - $(i + 2)) * factor
        if (d < 0) d = -d
        if (d > most) most = d
      } }
    END { print most + 0 }'
}

# compare GEOGRAPHIC CODE SIGN: differences there and back in millimetres.
compare() {
  local meridian
  meridian=$(projinfo -q -o WKT1_ESRI "EPSG:$2" |
    sed -n 's/.*"Central_Meridian",\([-0-9.]*\).*/\1/p')
  points "$meridian" "$3" >"$work/degrees"
  "$qn" geo convert --from "$1" --to "$2" --digits 7 <"$work/degrees" >"$work/ours"
  awk '{ print $2, $1 }' "$work/degrees" | cs2cs -f %.7f "EPSG:$1" "EPSG:$2" >"$work/theirs"
  like "$work/ours" "$work/theirs" >"$work/turned"
  cut -d' ' -f1,2 "$work/ours" >"$work/plane"
  there=$(largest "$work/plane" "$work/turned" 1000)
  awk '{ print $1, $2 }' "$work/theirs" | cs2cs -f %.12f "EPSG:$2" "EPSG:$1" >"$work/theirs_back"
  "$qn" geo convert --from "$2" --to "$1" --digits 12 <"$work/plane" >"$work/ours_back"
  like "$work/ours_back" "$work/theirs_back" >"$work/turned"
  back=$(largest "$work/ours_back" "$work/turned" 111320000)
}

bad=0
# family NAME GEOGRAPHIC SIGN FIRST LAST...
family() {
  local name=$1 geographic=$2 sign=$3 most_there=0 most_back=0 count=0 code
  shift 3
  while [ $# -gt 0 ]; do
    for code in $(seq "$1" "$2"); do
      compare "$geographic" "$code" "$sign"
      most_there=$(awk -v a="$most_there" -v b="$there" 'BEGIN { print (a > b) ? a : b }')
      most_back=$(awk -v a="$most_back" -v b="$back" 'BEGIN { print (a > b) ? a : b }')
      count=$((count + 1))
    done
    shift 2
  done
  printf '| %s | %d | %.5f | %.5f |\n' "$name" "$count" "$most_there" "$most_back"
  awk -v a="$most_there" -v b="$most_back" 'BEGIN { exit !(a <= 0.1 && b <= 0.1) }' || bad=1
}

printf '| codes | how many | to the plane, mm | back, mm |\n|---|---|---|---|\n'
family 'Xian 1980: 2327-2390' 4610 1 2327 2390
family 'Beijing 1954: 2401-2442, 21413-21423, 21453-21463' 4214 1 2401 2442 21413 21423 21453 21463
family 'CGCS2000: 4491-4554' 4490 1 4491 4554
family 'UTM north: 32601-32660' 4326 1 32601 32660
family 'UTM south: 32701-32760' 4326 -1 32701 32760
exit "$bad"
