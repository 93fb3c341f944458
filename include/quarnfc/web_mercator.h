// SPDX-License-Identifier: MIT
// QNWebMercator: the spherical Web Mercator plane of web maps.
//
// Longitude and latitude in degrees, x (east) and y (north) in metres on the sphere of the
// equatorial radius; longitude comes first. Longitudes are not wrapped and latitudes not clamped:
// the poles give an infinite, undefined or very large y.
//
// Threads: pure functions, callable from any thread; nothing throws. The outputs may be the inputs'
// own variables.
//
// Example:
//   double x = 0;
//   double y = 0;
//   QNWebMercator::LonLat2WebMercator(180.0, 0.0, x, y);
//   x;      // == 20037508.3427892
//   y;      // == 0.0
#ifndef QUARNFC_WEB_MERCATOR_H_
#define QUARNFC_WEB_MERCATOR_H_

#include <quarnfc/export.h>

namespace QNWebMercator {

// A y within 1e-8 m of the equator is exactly 0.
QN_API void LonLat2WebMercator(double lon, double lat, double& x, double& y);

// A latitude within 1e-8 degrees of the equator is exactly 0.
QN_API void WebMercator2LonLat(double x, double y, double& lon, double& lat);

}  // namespace QNWebMercator

#endif  // QUARNFC_WEB_MERCATOR_H_
