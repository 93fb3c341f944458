// SPDX-License-Identifier: MIT
// Projected systems: fields, comparison, UTM zones.
#include <quarnfc/projected.h>

#include <cmath>
#include <cstdlib>
#include <type_traits>

#include "geo/tolerance.h"

static_assert(sizeof(CQNProCoordinateSystem) == 20 * sizeof(double));
static_assert(std::is_standard_layout_v<CQNProCoordinateSystem>);
static_assert(std::is_trivially_copyable_v<CQNProCoordinateSystem>);
static_assert(sizeof(CQNProCoordinateSystem::EPCSType) == 4);

namespace quarnfc::geo {

namespace {

constexpr double kFalseEasting = 500000.0;
constexpr double kSouthernFalseNorthing = 10000000.0;
constexpr double kUtmScale = 0.9996;
constexpr double kUtmScaleTolerance = 0.0001;
constexpr int kLastUtmZone = 60;

// Deliberately put so that not-a-number is neither off nor at a value.
bool IsOff(double value, double expected) { return std::fabs(value - expected) > kMetreTolerance; }

bool IsAt(double value, double expected) { return std::fabs(value - expected) <= kMetreTolerance; }

}  // namespace

}  // namespace quarnfc::geo

using quarnfc::geo::IsAt;
using quarnfc::geo::IsNear;
using quarnfc::geo::IsOff;
using quarnfc::geo::kFalseEasting;
using quarnfc::geo::kMetreTolerance;
using quarnfc::geo::kSouthernFalseNorthing;
using quarnfc::geo::kUtmScale;

CQNProCoordinateSystem::CQNProCoordinateSystem()
    : CQNProCoordinateSystem(CQNGeoCoordinateSystem::Beijing54, 120.0, kFalseEasting, 0.0, 1.0) {}

CQNProCoordinateSystem::CQNProCoordinateSystem(const CQNGeoCoordinateSystem& geo,
                                               double centralMeridian, double falseEasting,
                                               double falseNorthing, double scaleFactor) {
  set(geo, centralMeridian, falseEasting, falseNorthing, scaleFactor);
}

void CQNProCoordinateSystem::set(const CQNGeoCoordinateSystem& geo, double centralMeridian,
                                 double falseEasting, double falseNorthing, double scaleFactor) {
  geo_ = geo;
  central_meridian_ = centralMeridian;
  false_easting_ = falseEasting;
  false_northing_ = falseNorthing;
  scale_factor_ = scaleFactor;
}

bool CQNProCoordinateSystem::operator==(const CQNProCoordinateSystem& other) const {
  return geo_ == other.geo_ &&
         IsNear(central_meridian_, other.central_meridian_, quarnfc::geo::kMeridianTolerance) &&
         IsNear(false_easting_, other.false_easting_, kMetreTolerance) &&
         IsNear(false_northing_, other.false_northing_, kMetreTolerance) &&
         IsNear(scale_factor_, other.scale_factor_, quarnfc::geo::kScaleTolerance);
}

bool CQNProCoordinateSystem::operator!=(const CQNProCoordinateSystem& other) const {
  return !(*this == other);
}

bool CQNProCoordinateSystem::IsUTM() const {
  return IsNear(scale_factor_, kUtmScale, quarnfc::geo::kUtmScaleTolerance);
}

bool CQNProCoordinateSystem::setByUTMCode(int code) {
  if (code < -quarnfc::geo::kLastUtmZone || code > quarnfc::geo::kLastUtmZone || code == 0)
    return false;
  set(CQNGeoCoordinateSystem::WGS84, std::abs(code) * 6 - 183, kFalseEasting,
      code < 0 ? kSouthernFalseNorthing : 0.0, kUtmScale);
  return true;
}

int CQNProCoordinateSystem::GetUTMCode() const {
  if (!IsUTM() || IsOff(false_easting_, kFalseEasting)) return 0;
  if (IsOff(false_northing_, 0.0) && IsOff(false_northing_, kSouthernFalseNorthing)) return 0;
  const double zone = (central_meridian_ + 183.0) / 6.0;
  if (!(std::fabs(zone) < 2147483647.0)) return 0;  // no int, or not a number
  const int code = static_cast<int>(zone);
  return IsAt(false_northing_, kSouthernFalseNorthing) ? -code : code;
}
