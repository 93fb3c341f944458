// SPDX-License-Identifier: MIT
// The reference ellipsoid and what the projections need of it, computed once.
//
//   b = a (1 - f)   e^2 = 1 - (b/a)^2   e'^2 = (a/b)^2 - 1   n = (a - b) / (a + b)
//
// Meridian arc from the equator to phi, as the series in powers of e^2 up to e^6 (J. P. Snyder, Map
// Projections: A Working Manual, USGS Professional Paper 1395, 1987, equation 3-21):
//
//   a (A0 phi - A2 sin 2phi + A4 sin 4phi - A6 sin 6phi)
//
// Footpoint latitude, its inverse, as the series in powers of n (ibid. 3-26), mu being the arc
// divided by a A0:
//
//   mu + F2 sin 2mu + F4 sin 4mu + F6 sin 6mu
//
// Deliberate: the term of sin 8mu (1097 n^4 / 512, a tenth of a millimetre on the ground) is left
// out, and the inverse flattening of WGS84 is cut to 298.257. Nothing is checked: an axis or an
// inverse flattening of 0 gives infinities and not-a-number.
#include <quarnfc/geographic.h>

#include <cmath>
#include <type_traits>

#include "geo/tolerance.h"

using quarnfc::geo::IsNear;

// Hosts copy systems bit for bit and read their fields by position.
static_assert(sizeof(CQNGeoCoordinateSystem) == 16 * sizeof(double));
static_assert(std::is_standard_layout_v<CQNGeoCoordinateSystem>);
static_assert(std::is_trivially_copyable_v<CQNGeoCoordinateSystem>);

const CQNGeoCoordinateSystem CQNGeoCoordinateSystem::Beijing54(6378245.0, 298.3);
const CQNGeoCoordinateSystem CQNGeoCoordinateSystem::XiAn80(6378140.0, 298.257);
const CQNGeoCoordinateSystem CQNGeoCoordinateSystem::WGS84(6378137.0, 298.257);
const CQNGeoCoordinateSystem CQNGeoCoordinateSystem::CGCS2000(6378137.0, 298.257222101);

CQNGeoCoordinateSystem::CQNGeoCoordinateSystem() : CQNGeoCoordinateSystem(Beijing54) {}

CQNGeoCoordinateSystem::CQNGeoCoordinateSystem(double semiMajorAxis, double inverseFlattening) {
  set(semiMajorAxis, inverseFlattening);
}

// The order of the operations matters to the last digit of every result built on these fields.
void CQNGeoCoordinateSystem::set(double semiMajorAxis, double inverseFlattening) {
  const double a = semiMajorAxis;
  const double b = a * (1.0 - 1.0 / inverseFlattening);
  const double b_to_a = b / a;
  const double a_to_b = a / b;
  semi_major_axis_ = a;
  semi_minor_axis_ = b;
  inverse_flattening_ = inverseFlattening;
  first_eccentricity_ = std::sqrt(1.0 - b_to_a * b_to_a);
  second_eccentricity_ = std::sqrt(a_to_b * a_to_b - 1.0);
  semi_major_axis_squared_ = a * a;
  semi_minor_axis_squared_ = b * b;
  third_flattening_ = (1.0 - b_to_a) / (1.0 + b_to_a);

  const double e2 = first_eccentricity_ * first_eccentricity_;
  const double e4 = e2 * e2;
  const double e6 = e2 * e4;
  arc0_ = 1.0 - e2 / 4.0 - 3.0 * e4 / 64.0 - 5.0 * e6 / 256.0;
  arc2_ = 3.0 * e2 / 8.0 + 3.0 * e4 / 32.0 + 45.0 * e6 / 1024.0;
  arc4_ = 15.0 * e4 / 256.0 + 45.0 * e6 / 1024.0;
  arc6_ = 35.0 * e6 / 3072.0;
  rectifying_radius_ = a * arc0_;

  const double n = third_flattening_;
  const double n2 = n * n;
  const double n3 = n * n2;
  const double n4 = n2 * n2;
  footpoint2_ = 3.0 * n / 2.0 - 27.0 * n3 / 32.0;
  footpoint4_ = 21.0 * n2 / 16.0 - 55.0 * n4 / 32.0;
  footpoint6_ = 151.0 * n3 / 96.0;
}

bool CQNGeoCoordinateSystem::operator==(const CQNGeoCoordinateSystem& other) const {
  return IsNear(semi_major_axis_, other.semi_major_axis_, quarnfc::geo::kMetreTolerance) &&
         IsNear(inverse_flattening_, other.inverse_flattening_,
                quarnfc::geo::kInverseFlatteningTolerance);
}

bool CQNGeoCoordinateSystem::operator!=(const CQNGeoCoordinateSystem& other) const {
  return !(*this == other);
}
