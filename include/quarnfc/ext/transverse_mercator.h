// SPDX-License-Identifier: MIT
// TransverseMercator: the exact projection by Krueger's series, beside the closed series of
// CQNProCoordinateSystem, with point scale and meridian convergence.
//
// The series run to the sixth power of the third flattening: C. F. F. Karney, "Transverse Mercator
// with an accuracy of a few nanometers", Journal of Geodesy 85 (2011), equations 35 and 36 (after
// L. Krueger, "Konforme Abbildung des Erdellipsoids in der Ebene", 1912). Within 30 degrees of the
// central meridian the truncation is below 5 nanometres, and forward and inverse undo each other to
// the rounding of the arithmetic. Farther out the error grows; at 90 degrees of longitude from the
// central meridian and beyond the projection is not used and the results are not-a-number.
//
// Header-only, C++17. An object never changes: any number of threads may use it.
//
// Example:
//   // a point of zone 38 (3 degrees, central meridian 114) on CGCS2000
//   using namespace quarnfc::ext;
//   const TransverseMercator zone(kCgcs2000, {114.0, 0.0, 500000.0, 0.0, 1.0});
//   const EastNorth plane = zone.Forward({114.3055, 30.5928});
//   std::lround(plane.east);                                   // == 529300
//   zone.ScaleAt({114.3055, 30.5928}).factor > 1.0;            // == true
#ifndef QUARNFC_EXT_TRANSVERSE_MERCATOR_H_
#define QUARNFC_EXT_TRANSVERSE_MERCATOR_H_

#include <quarnfc/ext/coordinates.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <cstddef>
#include <limits>

namespace quarnfc::ext {

// The parameters of a transverse Mercator system: degrees, metres.
struct TransverseMercatorParameters {
  double central_meridian = 0;
  double latitude_of_origin = 0;
  double false_easting = 0;
  double false_northing = 0;
  double scale_factor = 1;  // on the central meridian
};

// How the plane lies on the ellipsoid at a point.
struct PlaneScale {
  double factor = 1;       // plane length divided by ellipsoidal length, scale factor included
  double convergence = 0;  // degrees, from true north to grid north, clockwise positive: positive
                           // east of the central meridian on the northern hemisphere
};

class TransverseMercator {
 public:
  // The ellipsoid must be one: a positive axis and an inverse flattening above 1. With anything
  // else every result is not-a-number.
  TransverseMercator(const Ellipsoid& ellipsoid, const TransverseMercatorParameters& parameters)
      : parameters_(parameters),
        e2_(ellipsoid.FirstEccentricitySquared()),
        e_(std::sqrt(e2_)),
        radius_(RectifyingRadius(ellipsoid) * parameters.scale_factor),
        scale_(radius_ / ellipsoid.semi_major_axis) {
    const double n = ellipsoid.ThirdFlattening();
    forward_ = Coefficients(kForward, n);
    inverse_ = Coefficients(kInverse, n);
    origin_ = parameters.latitude_of_origin == 0 ? 0.0 : Northing(parameters.latitude_of_origin);
  }

  const TransverseMercatorParameters& Parameters() const { return parameters_; }

  // Longitude and latitude (degrees) to easting and northing (metres). The longitude difference is
  // taken the short way around the Earth. Not-a-number for latitudes beyond the poles.
  EastNorth Forward(const LonLat& at) const {
    Sphere sphere;
    if (!ToSphere(at, sphere)) return {kNaN, kNaN};
    const Complex zeta = sphere.zeta + SineSum(forward_, sphere.zeta);
    return {zeta.imag() * radius_ + parameters_.false_easting,
            zeta.real() * radius_ - origin_ + parameters_.false_northing};
  }

  // Easting and northing (metres) to longitude and latitude (degrees). The longitude lies within
  // 180 degrees of the central meridian. Not-a-number for points that no position projects to.
  LonLat Inverse(const EastNorth& at) const {
    const Complex zeta((at.north - parameters_.false_northing + origin_) / radius_,
                       (at.east - parameters_.false_easting) / radius_);
    if (!(std::abs(zeta.real()) <= kPi / 2 * 1.0000001) || !(std::abs(zeta.imag()) < kFarthest)) {
      return {kNaN, kNaN};
    }
    const Complex sphere = zeta + SineSum(inverse_, zeta);
    const double sinh_eta = std::sinh(sphere.imag());
    const double cos_xi = std::max(0.0, std::cos(sphere.real()));
    const double distance = std::hypot(sinh_eta, cos_xi);  // from the pole, as a cosine
    const double lon = distance == 0 ? 0.0 : std::atan2(sinh_eta, cos_xi);
    const double tangent = GeographicTangent(std::sin(sphere.real()) / distance);
    return {parameters_.central_meridian + lon / kRadiansPerDegree,
            std::atan(tangent) / kRadiansPerDegree};
  }

  // Scale factor and meridian convergence at a geographic position (degrees).
  PlaneScale ScaleAt(const LonLat& at) const {
    Sphere sphere;
    if (!ToSphere(at, sphere)) return {kNaN, kNaN};
    const Complex slope = 1.0 + CosineSum(forward_, sphere.zeta);
    const double sin_lat = std::sin(at.lat * kRadiansPerDegree);
    const double from_sphere = std::sqrt(1.0 - e2_ * sin_lat * sin_lat) *
                               std::hypot(1.0, std::tan(at.lat * kRadiansPerDegree)) /
                               std::hypot(sphere.tangent, sphere.cos_lon);
    const double sphere_convergence = std::atan2(
        sphere.tangent / std::hypot(1.0, sphere.tangent) * sphere.sin_lon, sphere.cos_lon);
    return {scale_ * from_sphere * std::abs(slope),
            (sphere_convergence - std::arg(slope)) / kRadiansPerDegree};
  }

  // The same for many points: out[i] from in[i]; in and out may be the same array.
  void Forward(const LonLat* in, EastNorth* out, std::size_t count) const {
    for (std::size_t i = 0; i < count; ++i) out[i] = Forward(in[i]);
  }
  void Inverse(const EastNorth* in, LonLat* out, std::size_t count) const {
    for (std::size_t i = 0; i < count; ++i) out[i] = Inverse(in[i]);
  }

 private:
  using Complex = std::complex<double>;
  using Series = std::array<double, 6>;  // factors of sin 2x, sin 4x ... sin 12x

  static constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  // Easting in radii of the sphere up to which the inverse is used: 84 degrees on the equator.
  static constexpr double kFarthest = 3.0;

  // A position on the conformal sphere, and where its transverse Mercator projection lies.
  struct Sphere {
    double tangent = 0;  // of the conformal latitude
    double sin_lon = 0;  // of the longitude from the central meridian
    double cos_lon = 0;
    Complex zeta;  // northing + i easting on the unit sphere
  };

  // Row j holds the polynomial in n that multiplies sin 2jx, from n^j on; those of the inverse with
  // their sign.
  static constexpr double kForward[6][6] = {
      {1.0 / 2, -2.0 / 3, 5.0 / 16, 41.0 / 180, -127.0 / 288, 7891.0 / 37800},
      {13.0 / 48, -3.0 / 5, 557.0 / 1440, 281.0 / 630, -1983433.0 / 1935360, 0},
      {61.0 / 240, -103.0 / 140, 15061.0 / 26880, 167603.0 / 181440, 0, 0},
      {49561.0 / 161280, -179.0 / 168, 6601661.0 / 7257600, 0, 0, 0},
      {34729.0 / 80640, -3418889.0 / 1995840, 0, 0, 0, 0},
      {212378941.0 / 319334400, 0, 0, 0, 0, 0}};
  static constexpr double kInverse[6][6] = {
      {-1.0 / 2, 2.0 / 3, -37.0 / 96, 1.0 / 360, 81.0 / 512, -96199.0 / 604800},
      {-1.0 / 48, -1.0 / 15, 437.0 / 1440, -46.0 / 105, 1118711.0 / 3870720, 0},
      {-17.0 / 480, 37.0 / 840, 209.0 / 4480, -5569.0 / 90720, 0, 0},
      {-4397.0 / 161280, 11.0 / 504, 830251.0 / 7257600, 0, 0, 0},
      {-4583.0 / 161280, 108847.0 / 3991680, 0, 0, 0, 0},
      {-20648693.0 / 638668800, 0, 0, 0, 0, 0}};

  static Series Coefficients(const double (&table)[6][6], double n) {
    Series series{};
    double power = 1.0;
    for (std::size_t j = 0; j < series.size(); ++j) {
      power *= n;
      double sum = 0.0;
      for (std::size_t k = series.size() - j; k-- > 0;) sum = sum * n + table[j][k];
      series[j] = power * sum;
    }
    return series;
  }

  // A = a / (1 + n) (1 + n^2/4 + n^4/64 + n^6/256)
  static double RectifyingRadius(const Ellipsoid& ellipsoid) {
    const double n = ellipsoid.ThirdFlattening();
    const double n2 = n * n;
    return ellipsoid.semi_major_axis / (1.0 + n) *
           (1.0 + n2 * (1.0 / 4 + n2 * (1.0 / 64 + n2 / 256)));
  }

  // Sum of series[j] sin 2(j + 1)x by Clenshaw's recurrence.
  static Complex SineSum(const Series& series, const Complex& x) {
    const Complex twice = 2.0 * std::cos(2.0 * x);
    Complex next, current;
    for (std::size_t j = series.size(); j-- > 0;) {
      const Complex previous = twice * current - next + series[j];
      next = current;
      current = previous;
    }
    return std::sin(2.0 * x) * current;
  }

  // Its derivative: the sum of 2(j + 1) series[j] cos 2(j + 1)x.
  static Complex CosineSum(const Series& series, const Complex& x) {
    const Complex cosine = std::cos(2.0 * x);
    Complex next, current;
    for (std::size_t j = series.size(); j-- > 0;) {
      const Complex previous =
          2.0 * cosine * current - next + 2.0 * static_cast<double>(j + 1) * series[j];
      next = current;
      current = previous;
    }
    return cosine * current - next;
  }

  // False for a position that is not projected.
  bool ToSphere(const LonLat& at, Sphere& sphere) const {
    const double lon = std::remainder(at.lon - parameters_.central_meridian, 360.0);
    if (!(std::abs(at.lat) <= 90.0) || !(std::abs(lon) < 90.0)) return false;
    sphere.sin_lon = std::sin(lon * kRadiansPerDegree);
    sphere.cos_lon = std::cos(lon * kRadiansPerDegree);
    sphere.tangent = ConformalTangent(std::tan(at.lat * kRadiansPerDegree));
    sphere.zeta = {std::atan2(sphere.tangent, sphere.cos_lon),
                   std::asinh(sphere.sin_lon / std::hypot(sphere.tangent, sphere.cos_lon))};
    return true;
  }

  // Tangent of the conformal latitude from that of the latitude.
  double ConformalTangent(double tangent) const {
    const double secant = std::hypot(1.0, tangent);
    const double sigma = std::sinh(e_ * std::atanh(e_ * tangent / secant));
    return std::hypot(1.0, sigma) * tangent - sigma * secant;
  }

  // The way back by Newton's method; three steps reach the rounding of the arithmetic.
  double GeographicTangent(double conformal) const {
    double tangent = conformal / (1.0 - e2_);
    if (!std::isfinite(tangent)) return tangent;
    for (int step = 0; step < 5; ++step) {
      const double at = ConformalTangent(tangent);
      const double change = (conformal - at) / std::hypot(1.0, at) *
                            (1.0 + (1.0 - e2_) * tangent * tangent) /
                            ((1.0 - e2_) * std::hypot(1.0, tangent));
      tangent += change;
      if (!(std::abs(change) > 1e-15 * std::max(1.0, std::abs(tangent)))) break;
    }
    return tangent;
  }

  // Metres on the central meridian from the equator to a latitude, scale factor included.
  double Northing(double lat) const {
    Sphere sphere;
    if (!ToSphere({parameters_.central_meridian, lat}, sphere)) return kNaN;
    return (sphere.zeta + SineSum(forward_, sphere.zeta)).real() * radius_;
  }

  TransverseMercatorParameters parameters_;
  double e2_;  // first eccentricity, squared
  double e_;
  double radius_;        // of the rectifying sphere, times the scale factor
  double scale_;         // the same, divided by the semi-major axis
  double origin_ = 0.0;  // northing of the latitude of origin
  Series forward_{};
  Series inverse_{};
};

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_TRANSVERSE_MERCATOR_H_
