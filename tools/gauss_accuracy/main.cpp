// SPDX-License-Identifier: MIT
// Writes the plot docs/gauss-accuracy.svg: how far the library's Gauss-Krueger series are from the
// exact projection, by longitude difference and latitude. Usage: gauss_accuracy FILE.svg
#include <quarnfc/projected.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>

#include "tests/geo/reference_transverse_mercator.h"

namespace {

constexpr double kDegree = 3.14159265358979323846 / 180.0;
constexpr double kLastLon = 6.0;
constexpr double kStep = 0.05;

constexpr int kLatitudes[] = {0, 20, 40, 60, 80};
constexpr const char* kColours[] = {"#1b6ca8", "#2a9d8f", "#c58a00", "#d1495b", "#6a4c93"};

const CQNGeoCoordinateSystem& kGeo = CQNGeoCoordinateSystem::CGCS2000;
const CQNProCoordinateSystem kSystem(kGeo, 0.0, 0.0, 0.0, 1.0);

struct Plane {
  double east;
  double north;
};

Plane Exact(double lon, double lat) {
  static const geo_test::ReferenceTransverseMercator exact(kGeo.GetSemiMajorAxis(),
                                                           kGeo.GetInverseFlattening());
  Plane plane;
  exact.Forward(lon, lat, plane.east, plane.north);
  return plane;
}

// Millimetres in the plane.
double ForwardError(double lon, double lat) {
  const Plane exact = Exact(lon, lat);
  Plane own;
  CQNProCoordinateSystem::GeoToGauss(lon, lat, own.east, own.north, kSystem);
  return std::hypot(own.east - exact.east, own.north - exact.north) * 1000.0;
}

// Millimetres on the ground.
double InverseError(double lon, double lat) {
  const Plane exact = Exact(lon, lat);
  double own_lon, own_lat;
  CQNProCoordinateSystem::GaussToGeo(exact.east, exact.north, own_lon, own_lat, kSystem);
  const double metres_per_degree = kGeo.GetSemiMajorAxis() * kDegree;
  return std::hypot((own_lon - lon) * std::cos(lat * kDegree), own_lat - lat) * metres_per_degree *
         1000.0;
}

// One diagram: longitude difference to the right, error upward from 0.001 to 1000 mm.
class Diagram {
 public:
  Diagram(FILE* file, double left, const char* title) : file_(file), left_(left) {
    std::fprintf(file_, "<text x='%.0f' y='28' font-size='15' font-weight='bold'>%s</text>\n", left,
                 title);
    for (int power = -3; power <= 3; ++power) DrawLevel(power);
    for (int lon = 0; lon <= 6; ++lon) DrawLongitude(lon);
    std::fprintf(file_,
                 "<text x='%.0f' y='%.0f' text-anchor='middle'>degrees from the central "
                 "meridian</text>\n",
                 left_ + kWidth / 2, kTop + kHeight + 38);
    DrawZone(1.5, "3-degree zone");
    DrawZone(3.0, "6-degree zone");
  }

  void Draw(double (*error)(double, double)) const {
    for (std::size_t i = 0; i < std::size(kLatitudes); ++i) {
      std::fprintf(file_, "<polyline fill='none' stroke-width='1.8' stroke='%s' points='",
                   kColours[i]);
      for (double lon = 0.0; lon <= kLastLon + kStep / 2; lon += kStep) {
        std::fprintf(file_, "%.1f,%.1f ", X(lon), Y(error(lon, kLatitudes[i])));
      }
      std::fprintf(file_, "'/>\n");
    }
  }

  static constexpr double kWidth = 380.0;
  static constexpr double kHeight = 300.0;
  static constexpr double kTop = 44.0;

 private:
  double X(double lon) const { return left_ + lon / kLastLon * kWidth; }

  double Y(double millimetres) const {
    const double power = std::log10(std::clamp(millimetres, 0.001, 1000.0));
    return kTop + (3.0 - power) / 6.0 * kHeight;
  }

  void DrawLevel(int power) const {
    const double y = Y(std::pow(10.0, power));
    std::fprintf(file_, "<path d='M%.0f %.1fh%.0f' stroke='#ccc'/>", left_, y, kWidth);
    std::fprintf(file_, "<text x='%.0f' y='%.1f' text-anchor='end'>%g mm</text>\n", left_ - 6,
                 y + 4, std::pow(10.0, power));
  }

  void DrawLongitude(int lon) const {
    std::fprintf(file_, "<path d='M%.1f %.0fv%.0f' stroke='#eee'/>", X(lon), kTop, kHeight);
    std::fprintf(file_, "<text x='%.1f' y='%.0f' text-anchor='middle'>%d</text>\n", X(lon),
                 kTop + kHeight + 18, lon);
  }

  void DrawZone(double lon, const char* name) const {
    std::fprintf(file_, "<path d='M%.1f %.0fv%.0f' stroke='#888' stroke-dasharray='4 3'/>", X(lon),
                 kTop, kHeight);
    std::fprintf(file_, "<text x='%.1f' y='%.0f' fill='#666'>%s</text>\n", X(lon) + 4, kTop + 14,
                 name);
  }

  FILE* file_;
  double left_;
};

void DrawLegend(FILE* file, double x, double y) {
  for (std::size_t i = 0; i < std::size(kLatitudes); ++i) {
    std::fprintf(file,
                 "<path d='M%.0f %.0fh22' stroke='%s' stroke-width='2.5'/>"
                 "<text x='%.0f' y='%.0f'>latitude %d</text>\n",
                 x, y, kColours[i], x + 28, y + 4, kLatitudes[i]);
    x += 130;
  }
}

}  // namespace

int main(int argc, char** argv) {
  FILE* file = argc == 2 ? std::fopen(argv[1], "wb") : nullptr;
  if (file == nullptr) {
    std::fprintf(stderr, "usage: gauss_accuracy FILE.svg\n");
    return 2;
  }
  std::fprintf(file,
               "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 940 430' "
               "font-family='sans-serif' font-size='12' fill='#222'>\n"
               "<rect width='940' height='430' fill='white'/>\n");
  Diagram(file, 70, "GeoToGauss: distance from the exact projection").Draw(ForwardError);
  Diagram(file, 540, "GaussToGeo: distance on the ground").Draw(InverseError);
  DrawLegend(file, 150, 412);
  std::fprintf(file, "</svg>\n");
  return std::fclose(file) == 0 ? 0 : 1;
}
