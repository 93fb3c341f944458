// SPDX-License-Identifier: MIT
// The same projection by PROJ, by its faster approximate method and by the exact default one, and
// by GeographicLib.
#include <proj.h>

#include <GeographicLib/TransverseMercator.hpp>
#include <cstdlib>
#include <string>

#include "points.h"
#include "row.h"

namespace {

using bench::Keep;
using bench::Row;

constexpr double kAxis = 6378137.0;
constexpr double kInverseFlattening = 298.257222101;
constexpr double kRadian = 3.14159265358979323846 / 180.0;

PJ* MakeProjection(const std::string& options) {
  PJ* projection = proj_create(
      PJ_DEFAULT_CTX, ("+proj=tmerc +lon_0=114 +x_0=500000 +ellps=GRS80 " + options).c_str());
  if (projection == nullptr) std::abort();
  return projection;
}

void AddProj(const char* who, const std::string& options) {
  PJ* const projection = MakeProjection(options);
  auto points = bench::GeographicPoints();
  for (auto& [lon, lat] : points) {
    lon *= kRadian;
    lat *= kRadian;
  }
  Row("Gauss-Krueger forward", bench::kPointsInput, who, [points, projection] {
    double sum = 0;
    for (const auto& [lon, lat] : points) {
      const PJ_COORD plane = proj_trans(projection, PJ_FWD, proj_coord(lon, lat, 0, 0));
      sum += plane.xy.x + plane.xy.y;
    }
    Keep(sum);
  });
  auto planes = points;
  for (auto& [x, y] : planes) {
    const PJ_COORD plane = proj_trans(projection, PJ_FWD, proj_coord(x, y, 0, 0));
    x = plane.xy.x;
    y = plane.xy.y;
  }
  Row("Gauss-Krueger inverse", bench::kPointsInput, who, [planes, projection] {
    double sum = 0;
    for (const auto& [east, north] : planes) {
      const PJ_COORD point = proj_trans(projection, PJ_INV, proj_coord(east, north, 0, 0));
      sum += point.lp.lam + point.lp.phi;
    }
    Keep(sum);
  });
}

void AddGeographicLib() {
  const GeographicLib::TransverseMercator mercator(kAxis, 1 / kInverseFlattening, 1.0);
  auto points = bench::GeographicPoints();
  Row("Gauss-Krueger forward", bench::kPointsInput, "GeographicLib", [points, mercator] {
    double sum = 0;
    for (const auto& [lon, lat] : points) {
      double east = 0, north = 0;
      mercator.Forward(bench::kMeridian, lat, lon, east, north);
      sum += east + north;
    }
    Keep(sum);
  });
  for (auto& [x, y] : points) {
    double east = 0, north = 0;
    mercator.Forward(bench::kMeridian, y, x, east, north);
    x = east;
    y = north;
  }
  Row("Gauss-Krueger inverse", bench::kPointsInput, "GeographicLib", [points, mercator] {
    double sum = 0;
    for (const auto& [east, north] : points) {
      double lon = 0, lat = 0;
      mercator.Reverse(bench::kMeridian, east, north, lat, lon);
      sum += lon + lat;
    }
    Keep(sum);
  });
}

[[maybe_unused]] const bool g_added = [] {
  AddProj("PROJ approximate", "+approx");
  AddProj("PROJ", "");
  AddGeographicLib();
  return true;
}();

}  // namespace
