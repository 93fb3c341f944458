#!/usr/bin/env bash
# Writes the texts of this folder as PROJ (Debian package proj-bin) writes them: the form of GDAL on
# many lines, that of ESRI on one line, and one text in the newer form that is not WKT1.
# Usage: tests/data/wkt/generate.sh
set -euo pipefail
cd "$(dirname "$0")"

for code in 4326 4490 4214 4610 4807 2327 2362 2414 2432 4526 4547 27700 2193 3395 32650 32750 3857
do
  projinfo -q -o WKT1_GDAL "EPSG:$code" | sed '/^$/d' > "epsg-$code.gdal.wkt"
  projinfo -q -o WKT1_ESRI --single-line "EPSG:$code" | sed '/^$/d' > "epsg-$code.esri.wkt"
done
projinfo -q -o WKT2:2019 "EPSG:4326" | sed '/^$/d' > epsg-4326.wkt2.wkt

# Every code of China, WGS 84 and UTM in three forms, a line each: code, form and text with tabs
# between them. The areas of use, which say nothing about coordinates, are left out.
{ printf '%s\n' 4214 4326 4490 4610 3857
  seq 2327 2390; seq 2401 2442; seq 4491 4554; seq 21413 21423; seq 21453 21463
  seq 32601 32660; seq 32701 32760
} | while read -r code; do
  for form in WKT1_GDAL WKT1_ESRI WKT2:2019; do
    printf '%s\t%s\t%s\n' "$code" "$form" \
      "$(projinfo -q --single-line -o "$form" "EPSG:$code" | sed '/^$/d')"
  done
done | sed 's/,USAGE\[.*\],ID\[/,ID[/' > official-systems.txt
