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
