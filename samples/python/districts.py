#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Projects the districts of a CSV file into a Gauss-Krueger system and prints some of them.

Usage: districts.py LIBRARY CSV_FILE
"""

import sys

from quarnfc import Library, QuarnError

EPSG_CGCS2000_MERIDIAN_117 = 4548


def main(library_path, csv_path):
    library = Library(library_path)
    rows = list(library.csv_rows(csv_path))
    points = [(float(row["longitude"]), float(row["latitude"])) for row in rows]
    projected = library.project(EPSG_CGCS2000_MERIDIAN_117, points)
    print(f"{len(rows)} districts")
    for row, (east, north) in list(zip(rows, projected))[:5]:
        name = row["district"] or row["city"] or row["province"]
        print(f"{row['code']} {name}: east {east:.3f} m, north {north:.3f} m")


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    try:
        main(*sys.argv[1:])
    except QuarnError as error:
        sys.exit(str(error))
