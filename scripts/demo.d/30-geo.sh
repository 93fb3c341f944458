# SPDX-License-Identifier: MIT
# Geodesy: systems by code, zone and text; points there and back; a whole file.
# shellcheck shell=bash disable=SC2154  # $project, $scratch, qn, title and say come from demo.sh

title "Coordinate systems"
say "The 3-degree zone of CGCS2000 around 114 degrees east, by its EPSG code."
qn geo wkt 4547

say "A point into that zone, from there into UTM zone 49, and back to degrees."
qn geo convert --from lonlat --to 4547 112.938814,28.228209
qn geo convert --from 4547 --to utm49 395837.1756,3124188.4432
qn geo convert --from 4547 --to lonlat 395837.1756,3124188.4432

say "What the library reads from texts of other programs, and what it refuses."
qn geo info tests/data/wkt/epsg-32650.gdal.wkt
qn geo info tests/data/wkt/epsg-4547.esri.wkt

say "The districts of China, all 3,508 rows, with coordinates of UTM zone 50 appended."
qn geo convert --from lonlat --to utm50 --csv data/districts-gbk.csv -o "$scratch/utm.csv"
qn csv head -n 3 "$scratch/utm.csv"
