// SPDX-License-Identifier: MIT
// The Gauss-Krueger series over points of a 3-degree zone.
#include <quarnfc/projected.h>

#include "points.h"
#include "row.h"

namespace {

using bench::Keep;
using bench::kOurs;
using bench::Row;

CQNProCoordinateSystem Zone() {
  return {CQNGeoCoordinateSystem::CGCS2000, bench::kMeridian, 500000.0, 0.0, 1.0};
}

void AddForward() {
  const auto points = bench::GeographicPoints();
  Row("Gauss-Krueger forward", bench::kPointsInput, kOurs, [points, zone = Zone()] {
    double sum = 0;
    for (const auto& [lon, lat] : points) {
      double east = 0, north = 0;
      CQNProCoordinateSystem::GeoToGauss(lon, lat, east, north, zone);
      sum += east + north;
    }
    Keep(sum);
  });
}

void AddInverse() {
  auto points = bench::GeographicPoints();
  const CQNProCoordinateSystem zone = Zone();
  for (auto& [x, y] : points) {
    double east = 0, north = 0;
    CQNProCoordinateSystem::GeoToGauss(x, y, east, north, zone);
    x = east;
    y = north;
  }
  Row("Gauss-Krueger inverse", bench::kPointsInput, kOurs, [points, zone] {
    double sum = 0;
    for (const auto& [east, north] : points) {
      double lon = 0, lat = 0;
      CQNProCoordinateSystem::GaussToGeo(east, north, lon, lat, zone);
      sum += lon + lat;
    }
    Keep(sum);
  });
}

}  // namespace

int main(int argc, char** argv) {
  AddForward();
  AddInverse();
  return bench::Run(argc, argv);
}
