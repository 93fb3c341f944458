// SPDX-License-Identifier: MIT
// How close two systems must be to count as equal.
#ifndef QUARNFC_GEO_TOLERANCE_H_
#define QUARNFC_GEO_TOLERANCE_H_

#include <cmath>

namespace quarnfc::geo {

constexpr double kMetreTolerance = 0.001;
constexpr double kInverseFlatteningTolerance = 1e-7;
constexpr double kMeridianTolerance = 1e-6;
// Coarse, deliberately: the scale factors 0.9996 and 1 count as equal.
constexpr double kScaleTolerance = 0.001;

// Strict: a difference of exactly the tolerance is a difference, and so is not-a-number.
inline bool IsNear(double left, double right, double tolerance) {
  return std::fabs(left - right) < tolerance;
}

}  // namespace quarnfc::geo

#endif  // QUARNFC_GEO_TOLERANCE_H_
