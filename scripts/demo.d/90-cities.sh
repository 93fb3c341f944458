# SPDX-License-Identifier: MIT
# The end of the show: cities in their 3-degree zones and the error of the way back.
# shellcheck shell=bash disable=SC2154  # $project, qn, title and say come from demo.sh

title "Cities in their 3-degree zones on CGCS2000"
say "Easting and northing in metres; the last column is the error of the way back in millimetres."
qn geo cities data/districts-gbk.csv 110000 120000 230100 310000 330100 370200 420100 430100 \
  440100 440300 460100 500000 510100 530100 540100 610100 620100 650100 810000 820000
