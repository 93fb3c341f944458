// qn geo: coordinate systems and conversions.
#include <quarnfc/csv.h>
#include <quarnfc/geographic.h>
#include <quarnfc/projected.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <set>
#include <vector>

#include "command.h"
#include "console.h"
#include "errors.h"
#include "exit_code.h"
#include "geo_csv.h"
#include "geo_system.h"
#include "input_file.h"
#include "library_buffer.h"
#include "options.h"
#include "output.h"

namespace qn {
namespace {

using Geo = CQNGeoCoordinateSystem;
using Pro = CQNProCoordinateSystem;

constexpr std::string_view kGroupUsage =
    "usage: qn geo COMMAND [OPTION...] [ARGUMENT...]\n"
    "\n"
    "A SYSTEM is one of\n"
    "  lonlat             longitude and latitude in degrees\n"
    "  mercator           the Web Mercator plane\n"
    "  4547, EPSG:4547    an EPSG code: 2327-2390, 2401-2442, 4513-4554, 32501-32560 (UTM\n"
    "                     south), 32601-32660 (UTM north)\n"
    "  utm50, utm50s      a UTM zone, north or south\n"
    "  FILE               a file with a PROJCS text\n";

constexpr std::string_view kConvertUsage =
    "usage: qn geo convert --from SYSTEM --to SYSTEM X,Y...\n"
    "       qn geo convert --from SYSTEM --to SYSTEM --csv FILE [--x NAME] [--y NAME]\n"
    "\n"
    "Converts points. X is the longitude or the easting, Y the latitude or the northing. With\n"
    "--csv, the rows of a CSV file (- is standard input) come out with two columns more. There is\n"
    "no shift between datums: longitude and latitude stay the same from system to system.\n"
    "\n"
    "  --from SYSTEM, --to SYSTEM   the systems; qn geo --help lists them\n"
    "  --csv FILE                   read points from a file whose first row is a header\n"
    "  --x NAME, --y NAME           the columns; otherwise the usual names are looked for\n"
    "  --digits N                   decimals (9 for degrees, 4 for metres)\n"
    "  -o, --output FILE            write to a file; it is whole or not there\n"
    "\n"
    "Example: qn geo convert --from lonlat --to 4547 112.938814,28.228209\n";

constexpr std::string_view kWktUsage =
    "usage: qn geo wkt SYSTEM\n"
    "\n"
    "Writes the WKT of a projected system (qn geo --help lists them), or of beijing54, xian80,\n"
    "wgs84 or cgcs2000.\n";

constexpr std::string_view kInfoUsage =
    "usage: qn geo info FILE\n"
    "\n"
    "Reads a file of WKT (- is standard input) and shows what the library takes from it. The exit\n"
    "code is 1 when the library refuses the text; its message is shown.\n";

constexpr std::string_view kCitiesUsage =
    "usage: qn geo cities FILE [CODE...]\n"
    "\n"
    "Projects places of a districts file (CSV with the columns code, province, city, district,\n"
    "longitude, latitude) into their 3-degree zones on CGCS2000 and back. Shows the places with\n"
    "these codes, or all. The last column is the error of the way back in millimetres; the exit\n"
    "code is 1 when it exceeds 1 mm anywhere.\n";

template <class... Arguments>
std::string Format(const char* format, Arguments... arguments) {
  const int length = std::snprintf(nullptr, 0, format, arguments...);
  std::string text(static_cast<std::size_t>(std::max(length, 0)), '\0');
  std::snprintf(text.data(), text.size() + 1, format, arguments...);
  return text;
}

// --- convert ----------------------------------------------------------------------------------

Point ReadPointArgument(const std::string& argument) {
  const std::size_t comma = argument.find(',');
  Point point;
  if (comma == std::string::npos || !ReadNumber(argument.substr(0, comma), point.x) ||
      !ReadNumber(argument.substr(comma + 1), point.y)) {
    throw UsageError("'" + DisplayText(argument) + "' is no point; write X,Y");
  }
  return point;
}

int RunConvert(std::span<const std::string> arguments) {
  const Options options(arguments, {{"from", '\0', Takes::kValue},
                                    {"to", '\0', Takes::kValue},
                                    {"csv", '\0', Takes::kValue},
                                    {"x", '\0', Takes::kValue},
                                    {"y", '\0', Takes::kValue},
                                    {"digits", '\0', Takes::kValue},
                                    {"output", 'o', Takes::kValue}});
  if (!options.Has("from") || !options.Has("to")) throw UsageError("--from and --to are needed");
  const bool csv = options.Has("csv");
  options.ExpectPositional(csv ? 0 : 1, csv ? 0 : 1'000'000);
  const GeoSystem from(options.Value("from"));
  const GeoSystem to(options.Value("to"));
  const auto convert = [&](const Point& p) { return to.FromLonLat(from.ToLonLat(p)); };
  const int digits = static_cast<int>(options.Number("digits", to.Decimals(), 0, 15));
  std::string converted;
  if (csv) {
    const bool degrees = to.GetKind() == GeoSystem::Kind::kLonLat;
    converted = ConvertCsv(
        ReadInput(options.Value("csv")), {options.Value("x"), options.Value("y")}, digits,
        degrees ? "to_longitude,to_latitude" : "to_easting,to_northing", convert);
  }
  for (const std::string& each : options.Positional()) {
    converted += FormatPoint(convert(ReadPointArgument(each)), digits) + "\n";
  }
  Output output(options.Value("output", "-"));
  output.Write(converted);
  output.Commit();
  return kSuccess;
}

// --- wkt --------------------------------------------------------------------------------------

struct NamedSystem {
  const char* name;
  const Geo* system;
};

const NamedSystem kNamedSystems[] = {{"beijing54", &Geo::Beijing54},
                                     {"xian80", &Geo::XiAn80},
                                     {"wgs84", &Geo::WGS84},
                                     {"cgcs2000", &Geo::CGCS2000}};

int RunWkt(std::span<const std::string> arguments) {
  const Options options(arguments, {});
  options.ExpectPositional(1, 1);
  const std::string& wanted = options.Positional()[0];
  for (const NamedSystem& named : kNamedSystems) {
    if (wanted != named.name) continue;
    PrintLine(LibraryBuffer<char>(named.system->CreateWKT()).get());
    return kSuccess;
  }
  const GeoSystem system(wanted);
  if (system.GetKind() != GeoSystem::Kind::kProjected) {
    throw UsageError("'" + wanted + "' has no WKT in this library");
  }
  PrintLine(LibraryBuffer<char>(system.Projected().CreateWKT()).get());
  return kSuccess;
}

// --- info -------------------------------------------------------------------------------------

void PrintEllipsoid(const Geo& geo) {
  const auto named =
      std::find_if(std::begin(kNamedSystems), std::end(kNamedSystems),
                   [&](const NamedSystem& candidate) { return *candidate.system == geo; });
  PrintLine(Format("ellipsoid           %s",
                   named == std::end(kNamedSystems) ? "none of the predefined ones" : named->name));
  PrintLine(Format("semi-major axis     %.4f m", geo.GetSemiMajorAxis()));
  PrintLine(Format("semi-minor axis     %.4f m", geo.GetSemiMinorAxis()));
  PrintLine(Format("inverse flattening  %.9f", geo.GetInverseFlattening()));
}

void PrintProjection(const Pro& system) {
  PrintLine(Format("central meridian    %.9g", system.GetCentralMeridian()));
  PrintLine(Format("false easting       %.4f m", system.GetFalseEasting()));
  PrintLine(Format("false northing      %.4f m", system.GetFalseNorthing()));
  PrintLine(Format("scale factor        %.10g", system.GetScaleFactor()));
  if (const int zone = system.GetUTMCode(); zone != 0) {
    PrintLine(Format("UTM zone            %d %s", std::abs(zone), zone < 0 ? "south" : "north"));
  }
  for (const int code : FindEpsgCodes(system)) {
    PrintLine(Format("equals EPSG code    %d (as this library defines it)", code));
  }
}

int RunInfo(std::span<const std::string> arguments) {
  const Options options(arguments, {});
  options.ExpectPositional(1, 1);
  const std::string wkt = ReadInput(options.Positional()[0]);
  Geo geo;
  if (const auto message = ReadWkt(geo, wkt)) throw Failure(*message);
  Pro projected;
  const auto refused = ReadWkt(projected, wkt);
  PrintEllipsoid(geo);
  if (!refused) {
    PrintProjection(projected);
  } else {
    PrintLine("not a projected system here: " + *refused);
  }
  return kSuccess;
}

// --- cities -----------------------------------------------------------------------------------

constexpr double kMetresPerDegree = 111320.0;

struct Place {
  std::string code;
  std::string name;
  Point degrees;
};

Place ReadPlace(const std::vector<CQNString>& row) {
  if (row.size() < 6) throw Failure("the districts file has a row of fewer than six fields");
  Place place{static_cast<const char*>(row[0]), static_cast<const char*>(row[1]), {}};
  for (const std::size_t column : {2, 3}) {
    const CQNString& part = row[column];
    if (!part.IsEmpty()) place.name = static_cast<const char*>(part);
  }
  if (!ReadNumber(static_cast<const char*>(row[4]), place.degrees.x) ||
      !ReadNumber(static_cast<const char*>(row[5]), place.degrees.y)) {
    throw Failure("the districts file has no coordinates for " + place.code);
  }
  return place;
}

// The code of the 3-degree zone on CGCS2000 that a longitude lies in: 4534 has the meridian 75.
int ZoneCode(double lon) {
  const int meridian = static_cast<int>(std::lround(std::clamp(lon, 75.0, 135.0) / 3.0)) * 3;
  return 4534 + (meridian - 75) / 3;
}

// Prints one line of the table and returns the error of the way back in millimetres.
double PrintPlace(const Place& place) {
  Pro zone;
  Pro::EPCSType type;
  const int code = ZoneCode(place.degrees.x);
  zone.setByEPSGCode(code, type);
  Point plane;
  Point back;
  Pro::GeoToGauss(place.degrees.x, place.degrees.y, plane.x, plane.y, zone);
  Pro::GaussToGeo(plane.x, plane.y, back.x, back.y, zone);
  const double east = (back.x - place.degrees.x) * kMetresPerDegree *
                      std::cos(place.degrees.y * 3.14159265358979 / 180.0);
  const double north = (back.y - place.degrees.y) * kMetresPerDegree;
  const double error = std::hypot(east, north) * 1000.0;
  PrintLine(Format("%s  %-20s %11.6f %10.6f   %4.0f  %d %13.4f %13.4f %8.4f", place.code.c_str(),
                   place.name.c_str(), place.degrees.x, place.degrees.y, zone.GetCentralMeridian(),
                   code, plane.x, plane.y, error));
  return error;
}

int RunCities(std::span<const std::string> arguments) {
  const Options options(arguments, {});
  options.ExpectPositional(1, 10'000);
  const std::vector<std::string>& given = options.Positional();
  const std::set<std::string> wanted(given.begin() + 1, given.end());
  CQNCSVFileReader reader;
  if (!reader.Open(given[0].c_str())) throw Failure(FromLibrary(reader.GetLastError()));
  PrintLine(Format("%-6s  %-20s %11s %10s   %4s  %s %13s %13s %8s", "code", "place", "longitude",
                   "latitude", "CM", "EPSG", "easting", "northing", "back/mm"));
  std::vector<CQNString> row;
  double worst = 0.0;
  int count = 0;
  while (reader.NextRow(row)) {
    const Place place = ReadPlace(row);
    if (!wanted.empty() && !wanted.contains(place.code)) continue;
    worst = std::max(worst, PrintPlace(place));
    ++count;
  }
  PrintLine(Format("%d places; the largest error of the way back is %.4f mm", count, worst));
  return worst <= 1.0 && count > 0 ? kSuccess : kFailure;
}

constexpr Command kCommands[] = {
    {"convert", "Convert points between systems", kConvertUsage, RunConvert},
    {"wkt", "Write the WKT of a system", kWktUsage, RunWkt},
    {"info", "Show what the library reads from WKT", kInfoUsage, RunInfo},
    {"cities", "Project places into their 3-degree zones and back", kCitiesUsage, RunCities},
};

}  // namespace

extern const Command kGeoCommand;
const Command kGeoCommand = {"geo", "Coordinate systems and conversions", kGroupUsage, nullptr,
                             kCommands};

}  // namespace qn
