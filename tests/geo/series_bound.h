// SPDX-License-Identifier: MIT
// How far the library's series may be from the exact projection: the terms that they leave out.
//
// Sources: the series of the transverse Mercator projection in the longitude difference, as in
// J. P. Snyder, "Map Projections: A Working Manual" (1987), chapter 8, and J. C. B. Redfearn,
// "Transverse Mercator Formulae", Empire Survey Review 69 (1948), whose terms go one order
// further; for the meridian arc and the footpoint latitude the terms of the next order (e^8, n^4)
// of the same expansions. Terms of the order after those are covered by a factor of 1.5.
#ifndef QUARNFC_TESTS_GEO_SERIES_BOUND_H_
#define QUARNFC_TESTS_GEO_SERIES_BOUND_H_

#include <quarnfc/geographic.h>

#include <cmath>

namespace geo_test {

// Metres, for a point at this longitude difference and latitude (degrees) and scale factor 1.
class SeriesBound {
 public:
  SeriesBound(const CQNGeoCoordinateSystem& geo, double lon, double lat) : geo_(geo) {
    const double degree = 3.14159265358979323846 / 180.0;
    const double e2 = geo.GetFirstEccentricity() * geo.GetFirstEccentricity();
    phi_ = std::fabs(lat) * degree;
    c_ = std::cos(phi_);
    t_ = std::tan(phi_);
    T_ = t_ * t_;
    eta2_ = geo.GetSecondEccentricity() * geo.GetSecondEccentricity() * c_ * c_;
    N_ = geo.GetSemiMajorAxis() / std::sqrt(1.0 - e2 * std::sin(phi_) * std::sin(phi_));
    m_ = std::fabs(lon) * degree * c_;
  }

  // The term of the seventh order, and what the fifth lacks in eta^4.
  double ForwardEast() const {
    const double seventh =
        std::fabs(61.0 - 479.0 * T_ + 179.0 * T_ * T_ - T_ * T_ * T_) * std::pow(m_, 7) / 5040.0;
    const double fifth = (13.0 + 64.0 * T_) * eta2_ * eta2_ * std::pow(m_, 5) / 120.0;
    return kRounding + kNextOrder * N_ * (seventh + fifth);
  }

  // The term of the sixth order, which the library deliberately adds without its factor N t, and
  // that of the eighth.
  double ForwardNorth() const {
    const double sixth = std::fabs(61.0 - 58.0 * T_ + T_ * T_ + 270.0 * eta2_ - 330.0 * T_ * eta2_);
    const double eighth = std::fabs(1385.0 - 3111.0 * T_ + 543.0 * T_ * T_ - T_ * T_ * T_);
    return kRounding + Arc() +
           kNextOrder * N_ * t_ *
               (sixth * std::pow(m_, 6) / 720.0 + eighth * std::pow(m_, 8) / 40320.0);
  }

  // The same for the way back, as distances on the ground.
  double InverseEast() const {
    const double seventh =
        (61.0 + 662.0 * T_ + 1320.0 * T_ * T_ + 720.0 * T_ * T_ * T_) * std::pow(m_, 7) / 5040.0;
    const double fifth =
        (3.0 + 64.0 * T_ * T_ + 24.0 * T_) * eta2_ * eta2_ * std::pow(m_, 5) / 120.0;
    return kRounding + Arc() * m_ * t_ + kNextOrder * N_ * (seventh + fifth);
  }

  double InverseNorth() const {
    const double fourth = (4.0 + 9.0 * T_) * eta2_ * eta2_ * std::pow(m_, 4) / 24.0;
    const double sixth = (46.0 + 252.0 * T_ + 90.0 * T_ * T_) * eta2_ * std::pow(m_, 6) / 720.0;
    const double eighth = (1385.0 + 3633.0 * T_ + 4095.0 * T_ * T_ + 1575.0 * T_ * T_ * T_) *
                          std::pow(m_, 8) / 40320.0;
    return kRounding + Arc() + kNextOrder * N_ * t_ * (fourth + sixth + eighth);
  }

 private:
  static constexpr double kRounding = 2e-7;
  static constexpr double kNextOrder = 1.5;

  // The terms of e^8 (in n: n^4) of the meridian arc and of the footpoint latitude.
  double Arc() const {
    const double e8 = std::pow(geo_.GetFirstEccentricity(), 8);
    const double sum = 175.0 / 16384.0 * phi_ + 105.0 / 4096.0 * std::fabs(std::sin(2.0 * phi_)) +
                       525.0 / 16384.0 * std::fabs(std::sin(4.0 * phi_)) +
                       175.0 / 12288.0 * std::fabs(std::sin(6.0 * phi_)) +
                       (315.0 / 131072.0 + 1097.0 / 131072.0) * std::fabs(std::sin(8.0 * phi_));
    return kNextOrder * geo_.GetSemiMajorAxis() * e8 * sum;
  }

  const CQNGeoCoordinateSystem& geo_;
  double phi_;
  double c_;
  double t_;
  double T_;
  double eta2_;
  double N_;
  double m_;
};

}  // namespace geo_test

#endif  // QUARNFC_TESTS_GEO_SERIES_BOUND_H_
