// SPDX-License-Identifier: MIT
// qn geo: coordinate systems and conversions. Here are the commands' names and help.
#include "qn/command.h"
#include "qn/geo/commands.h"

namespace qn {
namespace {

constexpr std::string_view kGroupUsage =
    "usage: qn geo COMMAND [OPTION...] [ARGUMENT...]\n"
    "\n"
    "A SYSTEM is one of\n"
    "  lonlat             longitude and latitude in degrees, on the datum of the other system\n"
    "  beijing54, xian80, cgcs2000, wgs84 (4214, 4610, 4490, 4326)\n"
    "                     longitude and latitude on this datum\n"
    "  mercator, 3857     the Web Mercator plane\n"
    "  4547, EPSG:4547    an EPSG code, with its official parameters: 2327-2390, 2401-2442,\n"
    "                     4491-4554, 21413-21423, 21453-21463, 32601-32660 (UTM north),\n"
    "                     32701-32760 (UTM south)\n"
    "  utm50, utm50s      a UTM zone, north or south\n"
    "  tm                 a transverse Mercator system by --cm, --fe, --fn, --k, --ellipsoid\n"
    "  FILE               a file with a PROJCS or GEOGCS text\n"
    "\n"
    "With --as-library a SYSTEM has the parameters and the series of the library: 500000 as false\n"
    "easting of every code, 2422-2442 on CGCS2000, 32501-32560 for UTM south, the shortened\n"
    "flattening of WGS 84, and WKT of which latitude of origin and units are passed over.\n";

constexpr std::string_view kConvertUsage =
    "usage: qn geo convert --from SYSTEM --to SYSTEM [OPTION...] X,Y...\n"
    "       qn geo convert --from SYSTEM --to SYSTEM --csv FILE [OPTION...]\n"
    "       qn geo convert --from SYSTEM --to SYSTEM [OPTION...] < LINES\n"
    "\n"
    "Converts points: of the command line; the rows of a CSV file (- is standard input), which "
    "come\n"
    "out with two columns more; or lines \"X Y rest\" of standard input. X is the longitude or "
    "the\n"
    "easting, Y the latitude or the northing. Degrees may be 112d56'19.7\"E. An easting may have "
    "the\n"
    "number of its zone in front. Points that cannot be are refused; rows without a point come "
    "out\n"
    "without coordinates, are reported with their line and make the exit code 1.\n"
    "\n"
    "      --from SYSTEM, --to SYSTEM   the systems; qn geo --help lists them\n"
    "      --csv FILE            read points from a file whose first row is a header\n"
    "      --x NAME, --y NAME    the columns of longitude or easting, and of latitude or "
    "northing;\n"
    "                            otherwise the usual names are looked for\n"
    "  -d, --delimiter CHAR      between fields; tab for a tab\n"
    "      --order en|ne         east or north first, in and out; needed for columns named x and "
    "y\n"
    "      --digits N            decimals (9 for degrees, 4 for metres)\n"
    "      --zone-prefix         put the number of the zone in front of eastings\n"
    "      --cm D, --fe M, --fn M, --k F, --ellipsoid NAME\n"
    "                            the system tm: meridian, false easting (500000) and northing "
    "(0),\n"
    "                            scale (1), beijing54, xian80, cgcs2000 (default) or wgs84\n"
    "      --shift LIST          between datums: dX,dY,dZ or dX,dY,dZ,rX,rY,rZ,ppm in metres,\n"
    "                            arc-seconds and parts per million\n"
    "      --rotation NAME       coordinate-frame or position-vector: what rotations turn\n"
    "      --no-datum-shift      longitude and latitude stay the same from datum to datum\n"
    "      --as-library          the parameters and series of the library\n"
    "      --force               convert even far off the meridian\n"
    "      --strict              stop at the first row without a point\n"
    "      --json                write a JSON object for each point, in UTF-8, a line each\n"
    "  -o, --output FILE         write to a file; it is whole or not there\n"
    "\n"
    "Example: qn geo convert --from lonlat --to 4547 112.938814,28.228209\n";

constexpr std::string_view kEstimateUsage =
    "usage: qn geo estimate [--order en|ne] [--json] FILE\n"
    "       qn geo estimate [--from DATUM --to DATUM] [--rotation NAME] [--json] FILE\n"
    "\n"
    "Estimates the parameters between two systems from points that are known in both, by least\n"
    "squares, and shows the residuals. FILE (- is standard input) has a line for each point:\n"
    "  [NAME] X Y X' Y'        in two planes: four parameters, from two points or more\n"
    "  [NAME] X Y Z X' Y' Z'   in space, Earth-fixed metres: seven, from three points or more\n"
    "Blanks, tabs, commas or semicolons stand between; # starts a remark.\n"
    "\n"
    "      --order en|ne     of the plane coordinates: east first (en) or north\n"
    "      --from DATUM, --to DATUM\n"
    "                        points in space are longitude, latitude and height on these datums:\n"
    "                        beijing54, xian80, cgcs2000, wgs84\n"
    "      --rotation NAME   coordinate-frame (otherwise taken) or position-vector: what "
    "rotations\n"
    "                        turn\n"
    "      --json            write a JSON object\n";

constexpr std::string_view kWktUsage =
    "usage: qn geo wkt [--as-library] SYSTEM\n"
    "\n"
    "Writes the WKT of a projected system (qn geo --help lists them), or of beijing54, xian80,\n"
    "wgs84 or cgcs2000, as the library writes it.\n"
    "\n"
    "      --as-library   with the parameters of the library's own table\n";

constexpr std::string_view kInfoUsage =
    "usage: qn geo info [--json] FILE\n"
    "\n"
    "Reads a file of WKT (- is standard input) and shows what the library takes from it. The exit\n"
    "code is 1 when the library refuses the text; its message is shown.\n"
    "\n"
    "      --json   write a JSON object: metres, degrees; what the library does not take as a\n"
    "               projected system, and what qn geo convert refuses, with the reason\n";

constexpr std::string_view kCitiesUsage =
    "usage: qn geo cities FILE [CODE...]\n"
    "\n"
    "Projects places of a districts file (CSV with the columns code, province, city, district,\n"
    "longitude, latitude) into their 3-degree zones on CGCS2000 and back. Shows the places with\n"
    "these codes, or all. The last column is the error of the way back in millimetres; the exit\n"
    "code is 1 when it exceeds 1 mm anywhere.\n";

constexpr Command kCommands[] = {
    {"convert", "Convert points between systems", kConvertUsage, geo::RunConvert},
    {"estimate", "Estimate parameters from common points", kEstimateUsage, geo::RunEstimate},
    {"wkt", "Write the WKT of a system", kWktUsage, geo::RunWkt},
    {"info", "Show what the library reads from WKT", kInfoUsage, geo::RunInfo},
    {"cities", "Project places into their 3-degree zones and back", kCitiesUsage, geo::RunCities},
};

}  // namespace

extern const Command kGeoCommand;
const Command kGeoCommand = {"geo", "Coordinate systems and conversions", kGroupUsage, nullptr,
                             kCommands};

}  // namespace qn
