// SPDX-License-Identifier: MIT
// Local plane systems whose lengths fit the ground: scale at a height, and compensated height
// planes.
//
// A length measured at the height H above the ellipsoid shrinks by about H / R on its way down and
// grows by about y^2 / (2 R^2) on its way into the plane, y metres from the central meridian. Where
// both cancel the plane shows true lengths; engineering projects choose the height of the plane so
// that this happens in the middle of their area. (GB 50026, "Standard for engineering surveying",
// asks for at most 25 mm a kilometre.)
//
// Header-only, C++17, in the namespace quarnfc::ext. Lengths in metres, angles in degrees. Any
// thread may call.
//
// Example:
//   // a town at 1,900 m, 40 km east of the central meridian
//   using namespace quarnfc::ext;
//   const double radius = MeanRadius(kCgcs2000, 25.0);
//   const double plane = CompensationHeight(1900.0, 40000.0, radius);
//   std::lround(plane);    // == 1774
//   const Ellipsoid raised = RaisedEllipsoid(kCgcs2000, plane, 25.0);
//   const TransverseMercator town(raised, {102.0, 0.0, 500000.0, 0.0, 1.0});
//   std::lround(town.Forward({102.0, 25.0}).east);    // == 500000
#ifndef QUARNFC_EXT_HEIGHT_PLANE_H_
#define QUARNFC_EXT_HEIGHT_PLANE_H_

#include <quarnfc/ext/coordinates.h>

#include <cmath>

namespace quarnfc::ext {

// The mean radius of curvature at a latitude: sqrt(M N) = b / (1 - e^2 sin^2 B).
inline double MeanRadius(const Ellipsoid& ellipsoid, double lat) {
  const double sin_lat = std::sin(lat * kRadiansPerDegree);
  return ellipsoid.SemiMinorAxis() /
         (1.0 - ellipsoid.FirstEccentricitySquared() * sin_lat * sin_lat);
}

// Plane length divided by ground length: the projection's point scale (PlaneScale::factor) carried
// up to a height above the ellipsoid.
inline double CombinedScale(double point_scale, double height, double radius) {
  return point_scale * radius / (radius + height);
}

// The same as a deformation in millimetres a kilometre (= parts per million).
inline double Deformation(double point_scale, double height, double radius) {
  return (CombinedScale(point_scale, height, radius) - 1.0) * 1e6;
}

// The height of the plane, above the ellipsoid, for which lengths at the ground height and offset
// metres from the central meridian keep their size: H - y^2 / (2 R). It can be negative.
inline double CompensationHeight(double ground_height, double offset, double radius) {
  return ground_height - offset * offset / (2.0 * radius);
}

// The offset from the central meridian at which lengths at the ground height keep their size in a
// plane at plane_height, sqrt(2 R (H - H0)); not-a-number when the plane lies above the ground.
inline double CompensatedOffset(double ground_height, double plane_height, double radius) {
  return std::sqrt(2.0 * radius * (ground_height - plane_height));
}

// An ellipsoid of the same flattening whose normal at a latitude is longer by the height of the
// plane: the semi-major axis grows by H sqrt(1 - e^2 sin^2 B). Geographic positions keep their
// numbers; projected on it they give coordinates at the height of the plane.
inline Ellipsoid RaisedEllipsoid(const Ellipsoid& ellipsoid, double height, double lat) {
  const double sin_lat = std::sin(lat * kRadiansPerDegree);
  const double growth =
      height * std::sqrt(1.0 - ellipsoid.FirstEccentricitySquared() * sin_lat * sin_lat);
  return {ellipsoid.semi_major_axis + growth, ellipsoid.inverse_flattening};
}

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_HEIGHT_PLANE_H_
