// SPDX-License-Identifier: MIT
// qn geo cities: places projected into their zones and back, by the library's own series.
#include <quarnfc/ext/csv_text.h>
#include <quarnfc/projected.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <vector>

#include "qn/console.h"
#include "qn/errors.h"
#include "qn/exit_code.h"
#include "qn/geo/commands.h"
#include "qn/geo/format.h"
#include "qn/geo/point.h"
#include "qn/options.h"
#include "qn/text/text_stream.h"

namespace qn::geo {
namespace {

using quarnfc::ext::CsvTextReader;
using quarnfc::ext::CsvTextRow;
using Pro = CQNProCoordinateSystem;

constexpr double kMetresPerDegree = 111320.0;

struct Place {
  std::string code;
  std::string name;
  Point degrees;
};

Place ReadPlace(const std::vector<std::string>& row) {
  if (row.size() < 6) throw Failure("the districts file has a row of fewer than six fields");
  Place place{row[0], row[1], {}};
  for (const std::size_t column : {2U, 3U}) {
    if (!row[column].empty()) place.name = row[column];
  }
  if (!ReadNumber(row[4], place.degrees.x) || !ReadNumber(row[5], place.degrees.y)) {
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

}  // namespace

int RunCities(Arguments arguments) {
  const Options options(arguments, {});
  options.ExpectPositional(1, 10'000);
  const std::vector<std::string>& given = options.Positional();
  const std::set<std::string> wanted(given.begin() + 1, given.end());
  TextStream input(given[0]);
  CsvTextReader reader([&] { return input.Next(); });
  CsvTextRow row;
  reader.Next(row);
  PrintLine(Format("%-6s  %-20s %11s %10s   %4s  %s %13s %13s %8s", "code", "place", "longitude",
                   "latitude", "CM", "EPSG", "easting", "northing", "back/mm"));
  double worst = 0.0;
  int count = 0;
  while (reader.Next(row)) {
    const Place place = ReadPlace(row.fields);
    if (!wanted.empty() && !wanted.contains(place.code)) continue;
    worst = std::max(worst, PrintPlace(place));
    ++count;
  }
  if (!reader.Error().empty()) throw Failure(reader.Error());
  PrintLine(Format("%d places; the largest error of the way back is %.4f mm", count, worst));
  return worst <= 1.0 && count > 0 ? kSuccess : kFailure;
}

}  // namespace qn::geo
