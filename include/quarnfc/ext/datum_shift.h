// SPDX-License-Identifier: MIT
// Datum shifts: from one datum to another by 3 or 7 parameters in space, by 4 in the plane.
//
// Space: X' = T + (1 + ds) R X with the small-angle rotation matrix, the Helmert transformation as
// the EPSG Guidance Note 7-2 has it (methods 1031, 1033 and 1032; IOGP, 2021). Two conventions of
// the signs of the rotations are in use, and their difference is silent and large: the convention
// is part of the parameters.
//
// Plane: E' = dE + a E - b N, N' = dN + b E + a N, the similarity with a = m cos t, b = m sin t.
//
// Header-only, C++17, in the namespace quarnfc::ext. Plain values; any thread may call.
//
// Example:
//   // from a local datum to CGCS2000 and back
//   using namespace quarnfc::ext;
//   const Helmert7 shift{{12.5, -107.1, -62.3}, {0.5, 1.2, -0.9}, 2.3,
//                        RotationConvention::kCoordinateFrame};
//   const LonLatHeight there = ShiftDatum(kKrassowsky1940, {114.3, 30.6, 20.0}, shift, kCgcs2000);
//   const LonLatHeight back = ShiftDatumBack(kCgcs2000, there, shift, kKrassowsky1940);
//   std::round(back.lon * 1e9) / 1e9;    // == 114.3
#ifndef QUARNFC_EXT_DATUM_SHIFT_H_
#define QUARNFC_EXT_DATUM_SHIFT_H_

#include <quarnfc/ext/coordinates.h>

#include <cmath>

namespace quarnfc::ext {

inline constexpr double kRadiansPerArcSecond = kPi / 648000.0;

// What a positive rotation turns.
enum class RotationConvention {
  kPositionVector,   // the point about the axes (EPSG method 1033)
  kCoordinateFrame,  // the axes about the point, signs opposite (EPSG method 1032), as in China
};

// Three numbers along or about the axes X, Y and Z.
struct AxisTriple {
  double x = 0;
  double y = 0;
  double z = 0;
};

// A shift by seven parameters; by three when rotation and scale are left 0 (EPSG method 1031).
struct Helmert7 {
  AxisTriple translation;  // metres
  AxisTriple rotation;     // arc-seconds
  double scale_ppm = 0;    // parts per million
  RotationConvention convention = RotationConvention::kPositionVector;
};

// A similarity in the plane. A scale of 1 is a = 1, b = 0.
struct PlaneSimilarity {
  double east = 0;   // metres
  double north = 0;  // metres
  double a = 1;      // scale times cosine of the rotation
  double b = 0;      // scale times sine of the rotation

  double Scale() const { return std::hypot(a, b); }
  // Degrees, counter-clockwise positive as seen on the map.
  double Rotation() const { return std::atan2(b, a) / kRadiansPerDegree; }
};

namespace detail {

// (1 + ds) R, row by row.
struct Matrix3 {
  double m[3][3];
};

inline Matrix3 HelmertMatrix(const Helmert7& shift) {
  const double sign = shift.convention == RotationConvention::kPositionVector ? 1.0 : -1.0;
  const double rx = sign * shift.rotation.x * kRadiansPerArcSecond;
  const double ry = sign * shift.rotation.y * kRadiansPerArcSecond;
  const double rz = sign * shift.rotation.z * kRadiansPerArcSecond;
  const double s = 1.0 + shift.scale_ppm * 1e-6;
  return {{{s, -s * rz, s * ry}, {s * rz, s, -s * rx}, {-s * ry, s * rx, s}}};
}

inline Cartesian Multiply(const Matrix3& r, double x, double y, double z) {
  return {r.m[0][0] * x + r.m[0][1] * y + r.m[0][2] * z,
          r.m[1][0] * x + r.m[1][1] * y + r.m[1][2] * z,
          r.m[2][0] * x + r.m[2][1] * y + r.m[2][2] * z};
}

// The inverse by cofactors; a shift's matrix is never singular.
inline Matrix3 Inverse(const Matrix3& r) {
  Matrix3 result{};
  double determinant = 0.0;
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) {
      const int i = (column + 1) % 3, j = (column + 2) % 3;
      const int k = (row + 1) % 3, l = (row + 2) % 3;
      result.m[row][column] = r.m[i][k] * r.m[j][l] - r.m[i][l] * r.m[j][k];
    }
  }
  for (int k = 0; k < 3; ++k) determinant += r.m[0][k] * result.m[k][0];
  for (auto& row : result.m) {
    for (double& value : row) value /= determinant;
  }
  return result;
}

}  // namespace detail

// The shifted position.
inline Cartesian Apply(const Helmert7& shift, const Cartesian& at) {
  const Cartesian turned = detail::Multiply(detail::HelmertMatrix(shift), at.x, at.y, at.z);
  return {turned.x + shift.translation.x, turned.y + shift.translation.y,
          turned.z + shift.translation.z};
}

// The position that Apply shifts here: the exact inverse, not the shift with its signs changed,
// which misses by millimetres.
inline Cartesian ApplyBack(const Helmert7& shift, const Cartesian& at) {
  return detail::Multiply(detail::Inverse(detail::HelmertMatrix(shift)), at.x - shift.translation.x,
                          at.y - shift.translation.y, at.z - shift.translation.z);
}

// A geographic position on one ellipsoid shifted to another: by way of Earth-fixed coordinates.
// Heights are above the respective ellipsoid; a position without one has the height 0.
inline LonLatHeight ShiftDatum(const Ellipsoid& from, const LonLatHeight& at, const Helmert7& shift,
                               const Ellipsoid& to) {
  return ToGeographic(to, Apply(shift, ToCartesian(from, {at.lon, at.lat}, at.height)));
}

// The way back: at lies on the ellipsoid from, the datum that shift leads to.
inline LonLatHeight ShiftDatumBack(const Ellipsoid& from, const LonLatHeight& at,
                                   const Helmert7& shift, const Ellipsoid& to) {
  return ToGeographic(to, ApplyBack(shift, ToCartesian(from, {at.lon, at.lat}, at.height)));
}

// The plane position after a similarity.
inline EastNorth Apply(const PlaneSimilarity& similarity, const EastNorth& at) {
  return {similarity.east + similarity.a * at.east - similarity.b * at.north,
          similarity.north + similarity.b * at.east + similarity.a * at.north};
}

// The way back; not-a-number for a similarity of scale 0.
inline EastNorth ApplyBack(const PlaneSimilarity& similarity, const EastNorth& at) {
  const double scale2 = similarity.a * similarity.a + similarity.b * similarity.b;
  const double east = at.east - similarity.east;
  const double north = at.north - similarity.north;
  return {(similarity.a * east + similarity.b * north) / scale2,
          (similarity.a * north - similarity.b * east) / scale2};
}

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_DATUM_SHIFT_H_
