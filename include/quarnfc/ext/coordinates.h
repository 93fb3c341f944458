// SPDX-License-Identifier: MIT
// The values that the geodesy additions take and give: points and ellipsoids.
//
// Header-only, in the namespace quarnfc::ext; C++17. Angles are in degrees (east and north
// positive), lengths in metres, and the east-west quantity stands before the north-south one. All
// are plain values without resources; every function may be called from any thread.
//
// Example:
//   using namespace quarnfc::ext;
//   const Cartesian fixed = ToCartesian(kCgcs2000, {114.3055, 30.5928}, 23.3);
//   const LonLatHeight back = ToGeographic(kCgcs2000, fixed);
//   std::round(back.lon * 1e9) / 1e9;    // == 114.3055
//   std::round(back.height * 1e6) / 1e6; // == 23.3
#ifndef QUARNFC_EXT_COORDINATES_H_
#define QUARNFC_EXT_COORDINATES_H_

#include <cmath>

namespace quarnfc::ext {

inline constexpr double kPi = 3.14159265358979323846;
inline constexpr double kRadiansPerDegree = kPi / 180.0;

// A geographic position in degrees.
struct LonLat {
  double lon = 0;
  double lat = 0;
};

// A geographic position with the height above the ellipsoid in metres.
struct LonLatHeight {
  double lon = 0;
  double lat = 0;
  double height = 0;
};

// A plane position in metres.
struct EastNorth {
  double east = 0;
  double north = 0;
};

// An Earth-fixed Cartesian position in metres: X to longitude 0 on the equator, Y to 90 degrees
// east, Z to the north pole.
struct Cartesian {
  double x = 0;
  double y = 0;
  double z = 0;
};

// A reference ellipsoid by its semi-major axis (metres) and inverse flattening; an infinite inverse
// flattening is a sphere.
struct Ellipsoid {
  double semi_major_axis = 0;
  double inverse_flattening = 0;

  double Flattening() const { return 1.0 / inverse_flattening; }
  double SemiMinorAxis() const { return semi_major_axis * (1.0 - Flattening()); }
  // e^2 = f (2 - f)
  double FirstEccentricitySquared() const { return Flattening() * (2.0 - Flattening()); }
  // n = f / (2 - f)
  double ThirdFlattening() const { return Flattening() / (2.0 - Flattening()); }
};

// The ellipsoids with their official parameters. (CQNGeoCoordinateSystem::WGS84 has the shortened
// inverse flattening 298.257, which moves a northing at 45 degrees by 17 mm.)
inline constexpr Ellipsoid kKrassowsky1940{6378245.0, 298.3};    // Beijing 1954
inline constexpr Ellipsoid kIag1975{6378140.0, 298.257};         // Xian 1980
inline constexpr Ellipsoid kCgcs2000{6378137.0, 298.257222101};  // CGCS2000
inline constexpr Ellipsoid kWgs84{6378137.0, 298.257223563};     // WGS 84

// Geographic to Earth-fixed coordinates. height is above the ellipsoid, in metres.
inline Cartesian ToCartesian(const Ellipsoid& ellipsoid, const LonLat& at, double height = 0.0) {
  const double lon = at.lon * kRadiansPerDegree;
  const double lat = at.lat * kRadiansPerDegree;
  const double e2 = ellipsoid.FirstEccentricitySquared();
  const double sin_lat = std::sin(lat);
  const double normal = ellipsoid.semi_major_axis / std::sqrt(1.0 - e2 * sin_lat * sin_lat);
  const double axis_distance = (normal + height) * std::cos(lat);
  return {axis_distance * std::cos(lon), axis_distance * std::sin(lon),
          (normal * (1.0 - e2) + height) * sin_lat};
}

// Earth-fixed to geographic coordinates: B. R. Bowring, "The accuracy of geodetic latitude and
// height equations", Survey Review 28 (1985), repeated until the latitude stands. Good to a
// micrometre from 5,000 km below the surface to any height above it; at the centre of the Earth the
// latitude means nothing.
inline LonLatHeight ToGeographic(const Ellipsoid& ellipsoid, const Cartesian& at) {
  const double a = ellipsoid.semi_major_axis;
  const double b = ellipsoid.SemiMinorAxis();
  const double e2 = ellipsoid.FirstEccentricitySquared();
  const double second_e2 = e2 / (1.0 - e2);
  const double axis_distance = std::hypot(at.x, at.y);

  double reduced = std::atan2(at.z * a, axis_distance * b);
  double lat = 0.0;
  for (int step = 0; step < 8; ++step) {
    const double sin_reduced = std::sin(reduced);
    const double cos_reduced = std::cos(reduced);
    lat = std::atan2(at.z + second_e2 * b * sin_reduced * sin_reduced * sin_reduced,
                     axis_distance - e2 * a * cos_reduced * cos_reduced * cos_reduced);
    const double next = std::atan2(b * std::sin(lat), a * std::cos(lat));
    if (std::abs(next - reduced) < 1e-16) break;
    reduced = next;
  }
  const double sin_lat = std::sin(lat);
  const double cos_lat = std::cos(lat);
  const double height =
      axis_distance * cos_lat + at.z * sin_lat - a * std::sqrt(1.0 - e2 * sin_lat * sin_lat);
  return {std::atan2(at.y, at.x) / kRadiansPerDegree, lat / kRadiansPerDegree, height};
}

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_COORDINATES_H_
