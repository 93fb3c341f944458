// SPDX-License-Identifier: MIT
// The Gauss-Krueger series: geographic to plane coordinates and back.
//
// The formulas are those of P. D. Thomas, Conformal Projections in Geodesy and Cartography, US
// Coast and Geodetic Survey Special Publication 251, 1952, cut after the sixth power of the
// longitude difference (forward) and of the distance from the central meridian (inverse). With t =
// tan B, T = t^2, eta = e' cos B, m = (L - L0) cos B in radians, and N the radius of curvature in
// the prime vertical:
//
//   north = arc(B) + N t (m^2/2 + (5 - T + 9 eta^2 + 4 eta^4) m^4/24)
//           + (61 - 58 T + T^2 + 270 eta^2 - 330 T eta^2) m^6/720        <- see below
//   east  = N (m + (1 - T + eta^2) m^3/6
//           + (5 - 18 T + T^2 + 14 eta^2 - 58 T eta^2) m^5/120)
//
// both times the scale factor, plus the false origin. The inverse starts from the footpoint
// latitude (see geo/ellipsoid.cpp). Nothing iterates, allocates or keeps a state; poles, far
// meridians and ellipsoids that are none give what the formulas give.
//
// Deviations from the literature, all deliberate:
//  - pi has 15 digits here;
//  - the term of the sixth order in the northing lacks its factor N tan(latitude), which makes it
//    immeasurably small;
//  - the footpoint series ends with sin 6mu.
// The order of the operations matters to the last digit of the results.
#include <quarnfc/projected.h>

#include <cmath>

namespace {

constexpr double kPi = 3.14159265358979;

constexpr double Square(double value) { return value * value; }

double MeridianArc(const CQNGeoCoordinateSystem& geo, double lat) {
  return geo.GetSemiMajorAxis() * (geo.GetArcCoefficient0() * (lat * kPi / 180.0) -
                                   geo.GetArcCoefficient2() * std::sin(2.0 * lat * kPi / 180.0) +
                                   geo.GetArcCoefficient4() * std::sin(4.0 * lat * kPi / 180.0) -
                                   geo.GetArcCoefficient6() * std::sin(6.0 * lat * kPi / 180.0));
}

double FootpointLatitude(const CQNGeoCoordinateSystem& geo, double mu) {
  return mu + geo.GetFootpointCoefficient2() * std::sin(2.0 * mu) +
         geo.GetFootpointCoefficient4() * std::sin(4.0 * mu) +
         geo.GetFootpointCoefficient6() * std::sin(6.0 * mu);
}

}  // namespace

// T = tan^2 B, eta2 = (e' cos B)^2, N = radius of curvature in the prime vertical, m = longitude
// difference in radians times cos B.
void CQNProCoordinateSystem::GeoToGauss(double lon, double lat, double& east, double& north,
                                        const CQNProCoordinateSystem& system) {
  const CQNGeoCoordinateSystem& geo = system.geo_;
  const double B = lat * kPi / 180.0;
  const double sin_b = std::sin(B);
  const double cos_b = std::cos(B);
  const double t = std::tan(B);
  const double T = t * t;
  const double eta2 = Square(geo.GetSecondEccentricity() * cos_b);
  const double eta4 = eta2 * eta2;
  const double N =
      geo.GetSemiMajorAxis() / std::sqrt(1.0 - Square(geo.GetFirstEccentricity()) * Square(sin_b));

  const double m = (lon - system.central_meridian_) * cos_b * kPi / 180.0;
  const double m2 = m * m;
  const double m3 = m * m2;
  const double m4 = m2 * m2;
  const double m5 = m * m4;
  const double m6 = m2 * m4;

  const double y = MeridianArc(geo, lat) +
                   N * t * (m2 / 2.0 + (5.0 - T + 9.0 * eta2 + 4.0 * eta4) * m4 / 24.0) +
                   (61.0 - 58.0 * T + T * T + 270.0 * eta2 - 330.0 * T * eta2) * m6 / 720.0;
  const double x = N * (m + (1.0 - T + eta2) * m3 / 6.0 +
                        (5.0 - 18.0 * T + T * T + 14.0 * eta2 - 58.0 * T * eta2) * m5 / 120.0);

  north = y * system.scale_factor_ + system.false_northing_;
  east = x * system.scale_factor_ + system.false_easting_;
}

// Bf = footpoint latitude; T, eta2, M and N (radii of curvature in the meridian and in the prime
// vertical) are taken there; D = distance from the central meridian in units of N.
void CQNProCoordinateSystem::GaussToGeo(double east, double north, double& lon, double& lat,
                                        const CQNProCoordinateSystem& system) {
  const CQNGeoCoordinateSystem& geo = system.geo_;
  const double mu =
      (north - system.false_northing_) / system.scale_factor_ / geo.GetRectifyingRadius();
  const double Bf = FootpointLatitude(geo, mu);
  const double sin_b = std::sin(Bf);
  const double cos_b = std::cos(Bf);
  const double t = std::tan(Bf);
  const double T = t * t;
  const double eta2 = Square(geo.GetSecondEccentricity()) * Square(cos_b);
  const double e2 = Square(geo.GetFirstEccentricity());
  const double a = geo.GetSemiMajorAxis();
  const double M = a * (1.0 - e2) / std::pow(1.0 - e2 * Square(sin_b), 1.5);
  const double N = a / std::sqrt(1.0 - e2 * Square(sin_b));

  const double D = (east - system.false_easting_) / (system.scale_factor_ * N);
  const double D2 = D * D;
  const double D3 = D * D2;
  const double D4 = D2 * D2;
  const double D5 = D * D4;
  const double D6 = D2 * D4;

  lat = Bf * 180.0 / kPi - (t * N / M) *
                               (D2 / 2.0 - (5.0 + 3.0 * T + eta2 - 9.0 * T * eta2) * D4 / 24.0 +
                                (61.0 + 90.0 * T + 45.0 * (T * T)) * D6 / 720.0) *
                               180.0 / kPi;
  lon = (D - (1.0 + 2.0 * T + eta2) * D3 / 6.0 +
         (5.0 + 28.0 * T + 24.0 * (T * T) + 6.0 * eta2 + 8.0 * T * eta2) * D5 / 120.0) /
            cos_b * 180.0 / kPi +
        system.central_meridian_;
}
