// SPDX-License-Identifier: MIT
// The Mercator projection of the sphere: x = R lambda, y = R ln tan(pi/4 + phi/2), with R times pi
// given as half the width of the world (J. P. Snyder, Map Projections: A Working Manual, USGS
// Professional Paper 1395, 1987, equations 7-1 to 7-5). Nothing is wrapped or clamped;
// deliberately, values within 1e-8 of the equator become exactly 0 in both directions.
#include <quarnfc/web_mercator.h>

#include <cmath>

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kHalfWorld = 20037508.3427892;  // metres from the meridian 0 to 180
constexpr double kRadiansPerDegree = 0.017453292519943295;
constexpr double kDegreesPerRadian = 57.29577951308232;
constexpr double kHalfPi = 1.5707963267948966;
constexpr double kSnap = 1e-8;

// The equator is exactly 0 in both planes.
double SnapToZero(double value) { return std::fabs(value) < kSnap ? 0.0 : value; }

}  // namespace

void QNWebMercator::LonLat2WebMercator(double lon, double lat, double& x, double& y) {
  const double isometric = std::log(std::tan((lat + 90.0) * kPi / 360.0)) / kRadiansPerDegree;
  x = lon * kHalfWorld / 180.0;
  y = SnapToZero(isometric * kHalfWorld / 180.0);
}

void QNWebMercator::WebMercator2LonLat(double x, double y, double& lon, double& lat) {
  const double isometric = y / kHalfWorld * 180.0 * kPi / 180.0;
  lon = x / kHalfWorld * 180.0;
  lat = SnapToZero((2.0 * std::atan(std::exp(isometric)) - kHalfPi) * kDegreesPerRadian);
}
