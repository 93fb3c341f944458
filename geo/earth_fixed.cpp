// SPDX-License-Identifier: MIT
// Earth-fixed Cartesian coordinates and the local frame of east, north and up.
//
// With n the unit normal at a point of the ellipsoid x^2/a^2 + y^2/a^2 + z^2/b^2 = 1, the point is
// (a^2 n.x, a^2 n.y, b^2 n.z) / sqrt(a^2 n.x^2 + a^2 n.y^2 + b^2 n.z^2), and one at height h lies
// h n from it. The way back looks for the point with that normal, the foot of the perpendicular
// from p, as p / (1 + lambda / axis^2) on each axis: lambda is the root of
//
//   f = sum of (p / axis)^2 / (1 + lambda / axis^2)^2 - 1
//
// and found by Newton's method, started at the point where the ray from the centre meets the
// surface. Nothing is allocated and no state is kept.
//
// Particularities, deliberate: the frame has no special case for the poles; near the centre the
// point on the ray is the result; a height of 0 can be -0.0.
#include <quarnfc/geographic.h>

#include <cmath>

namespace {

constexpr double kPi = 3.141592653589793;

struct Vector {
  double x;
  double y;
  double z;
};

Vector operator*(const Vector& v, double factor) {
  return {v.x * factor, v.y * factor, v.z * factor};
}

Vector operator-(const Vector& a, const Vector& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }

Vector Multiply(const Vector& a, const Vector& b) { return {a.x * b.x, a.y * b.y, a.z * b.z}; }

double Dot(const Vector& a, const Vector& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }

Vector Cross(const Vector& a, const Vector& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double Length(const Vector& v) { return std::sqrt(Dot(v, v)); }

// The unit vector, or the zero vector as it is.
Vector Normalised(const Vector& v) {
  const double length = Length(v);
  if (!(length > 0.0)) return v;
  return {v.x / length, v.y / length, v.z / length};
}

// The direction of the surface normal at a point of the ellipsoid.
Vector SurfaceNormal(const Vector& p, const CQNGeoCoordinateSystem& system) {
  const double a2 = system.GetSemiMajorAxisSquared();
  const double b2 = system.GetSemiMinorAxisSquared();
  return Normalised({p.x / a2, p.y / a2, p.z / b2});
}

// The foot point as p / (1 + lambda / axis^2) on each axis, with lambda by Newton's method: at most
// three steps on ellipsoids like the Earth's, some hundred where it wanders, deep inside flatter
// ones. It has no limit of its own and can run into not-a-number; hence ours, which lies far above
// every count of steps that was seen to converge. Returns whether it converged.
bool FindFootPoint(const Vector& p, const Vector& squares, const Vector& r2, double lambda,
                   Vector& foot) {
  constexpr double kTolerance = 1e-12;
  constexpr int kMaxSteps = 10000;
  double correction = 0.0;
  for (int step = 0; step < kMaxSteps; ++step) {
    lambda -= correction;
    const Vector m = {1.0 / (1.0 + lambda * r2.x), 1.0 / (1.0 + lambda * r2.y),
                      1.0 / (1.0 + lambda * r2.z)};
    const Vector m2 = Multiply(m, m);
    const Vector m3 = Multiply(m2, m);
    const double f = squares.x * m2.x + squares.y * m2.y + squares.z * m2.z - 1.0;
    if (std::fabs(f) <= kTolerance) {
      foot = Multiply(p, m);
      return true;
    }
    if (std::isnan(lambda)) return false;
    const double slope =
        -2.0 * (squares.x * m3.x * r2.x + squares.y * m3.y * r2.y + squares.z * m3.z * r2.z);
    correction = f / slope;
  }
  return false;
}

// The foot of the perpendicular from p on the ellipsoid. Near the centre, where it is not unique
// or badly determined, and where it cannot be found: the point where the ray from the centre to p
// meets the surface.
Vector ProjectToSurface(const Vector& p, const CQNGeoCoordinateSystem& system) {
  constexpr double kCentreTolerance = 0.1;
  const double a = system.GetSemiMajorAxis();
  const double b = system.GetSemiMinorAxis();
  const double a2 = system.GetSemiMajorAxisSquared();
  const double b2 = system.GetSemiMinorAxisSquared();
  const Vector scaled = Multiply(p, {1.0 / a, 1.0 / a, 1.0 / b});
  const Vector squares = Multiply(scaled, scaled);
  const double q = squares.x + squares.y + squares.z;
  const double ratio = std::sqrt(1.0 / q);
  const Vector on_ray = p * ratio;
  if (q < kCentreTolerance) return on_ray;

  const Vector r2 = {1.0 / a2, 1.0 / a2, 1.0 / b2};
  const Vector gradient = Multiply(on_ray * 2.0, r2);
  const double lambda = (1.0 - ratio) * Length(p) / (0.5 * Length(gradient));
  Vector foot = on_ray;
  return FindFootPoint(p, squares, r2, lambda, foot) ? foot : on_ray;
}

}  // namespace

void CQNGeoCoordinateSystem::LonLat2ECI(double lon, double lat, double height, double& x, double& y,
                                        double& z, const CQNGeoCoordinateSystem& system) {
  const double phi = lat * kPi / 180.0;
  const double lambda = lon * kPi / 180.0;
  const double cos_phi = std::cos(phi);
  const Vector n =
      Normalised({cos_phi * std::cos(lambda), cos_phi * std::sin(lambda), std::sin(phi)});
  const double a2 = system.semi_major_axis_squared_;
  const double b2 = system.semi_minor_axis_squared_;
  const Vector k = {a2 * n.x, a2 * n.y, b2 * n.z};
  const double gamma = std::sqrt(Dot(n, k));
  x = k.x / gamma + height * n.x;
  y = k.y / gamma + height * n.y;
  z = k.z / gamma + height * n.z;
}

void CQNGeoCoordinateSystem::ECI2LonLat(double x, double y, double z, double& lon, double& lat,
                                        double& height, const CQNGeoCoordinateSystem& system) {
  const Vector p = {x, y, z};
  const Vector surface = ProjectToSurface(p, system);
  const Vector n = SurfaceNormal(surface, system);
  const Vector above = p - surface;
  const double distance = Length(above);
  lon = std::atan2(n.y, n.x) * 180.0 / kPi;
  lat = std::asin(n.z) * 180.0 / kPi;
  height = Dot(above, p) > 0.0 ? distance : -distance;
}

void CQNGeoCoordinateSystem::EastNorthUpToFixedFrame(double x, double y, double z,
                                                     bool withTranslation, double matrix[4][4],
                                                     const CQNGeoCoordinateSystem& system) {
  const Vector up = SurfaceNormal({x, y, z}, system);
  const Vector east = Normalised({-y, x, 0.0});
  const Vector north = Cross(up, east);
  const double rows[4][4] = {
      {east.x, north.x, up.x, withTranslation ? x : 0.0},
      {east.y, north.y, up.y, withTranslation ? y : 0.0},
      {east.z, north.z, up.z, withTranslation ? z : 0.0},
      {0.0, 0.0, 0.0, 1.0},
  };
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) matrix[row][column] = rows[row][column];
  }
}
