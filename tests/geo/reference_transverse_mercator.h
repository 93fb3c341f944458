// SPDX-License-Identifier: MIT
// The transverse Mercator projection by Krueger's series in the third flattening n to the sixth
// order, after C. F. F. Karney, "Transverse Mercator with an accuracy of a few nanometers",
// J. Geodesy 85 (2011), equations 7 to 9, 11, 14 and 35. Exact to well below a micron within
// thousands of kilometres of the central meridian: the measure of the library's shorter series.
#ifndef QUARNFC_TESTS_GEO_REFERENCE_TRANSVERSE_MERCATOR_H_
#define QUARNFC_TESTS_GEO_REFERENCE_TRANSVERSE_MERCATOR_H_

#include <cmath>

namespace geo_test {

class ReferenceTransverseMercator {
 public:
  ReferenceTransverseMercator(double axis, double inverse_flattening)
      : n_(1.0 / (2.0 * inverse_flattening - 1.0)) {
    const double f = 1.0 / inverse_flattening;
    e_ = std::sqrt(f * (2.0 - f));
    const double n2 = n_ * n_;
    radius_ = axis / (1.0 + n_) * (1.0 + n2 / 4.0 + n2 * n2 / 64.0 + n2 * n2 * n2 / 256.0);
    SetCoefficients();
  }

  // Longitude difference and latitude in degrees to east and north in metres, scale factor 1.
  void Forward(double lon, double lat, double& east, double& north) const {
    const double degree = 3.14159265358979323846 / 180.0;
    const double tau = std::tan(lat * degree);
    const double secant = std::hypot(1.0, tau);
    const double sigma = std::sinh(e_ * std::atanh(e_ * tau / secant));
    const double conformal = tau * std::hypot(1.0, sigma) - sigma * secant;
    const double cos_lon = std::cos(lon * degree);
    const double xi = std::atan2(conformal, cos_lon);
    const double eta = std::asinh(std::sin(lon * degree) / std::hypot(conformal, cos_lon));
    double xi_sum = xi;
    double eta_sum = eta;
    for (int j = 1; j <= 6; ++j) {
      xi_sum += alpha_[j] * std::sin(2 * j * xi) * std::cosh(2 * j * eta);
      eta_sum += alpha_[j] * std::cos(2 * j * xi) * std::sinh(2 * j * eta);
    }
    east = radius_ * eta_sum;
    north = radius_ * xi_sum;
  }

 private:
  // Polynomials in n, highest power first.
  template <int Count>
  double Polynomial(const double (&coefficients)[Count]) const {
    double value = 0.0;
    for (const double coefficient : coefficients) value = value * n_ + coefficient;
    return value;
  }

  void SetCoefficients() {
    const double n = n_;
    alpha_[1] = n * Polynomial({7891.0 / 37800, -127.0 / 288, 41.0 / 180, 5.0 / 16, -2.0 / 3, 0.5});
    alpha_[2] =
        n * n * Polynomial({-1983433.0 / 1935360, 281.0 / 630, 557.0 / 1440, -3.0 / 5, 13.0 / 48});
    alpha_[3] =
        n * n * n * Polynomial({167603.0 / 181440, 15061.0 / 26880, -103.0 / 140, 61.0 / 240});
    alpha_[4] = n * n * n * n * Polynomial({6601661.0 / 7257600, -179.0 / 168, 49561.0 / 161280});
    alpha_[5] = n * n * n * n * n * Polynomial({-3418889.0 / 1995840, 34729.0 / 80640});
    alpha_[6] = n * n * n * n * n * n * (212378941.0 / 319334400);
  }

  double n_;
  double e_;
  double radius_;
  double alpha_[7] = {};
};

}  // namespace geo_test

#endif  // QUARNFC_TESTS_GEO_REFERENCE_TRANSVERSE_MERCATOR_H_
