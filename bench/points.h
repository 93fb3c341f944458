// SPDX-License-Identifier: MIT
// The points that the projections of the geodesy benchmark convert.
#ifndef QUARNFC_BENCH_POINTS_H_
#define QUARNFC_BENCH_POINTS_H_

#include <array>
#include <utility>

namespace bench {

inline constexpr double kMeridian = 114.0;
inline constexpr int kPoints = 100;
inline constexpr char kPointsInput[] = "100 points";

// Longitude and latitude in degrees, all over a 3-degree zone.
inline std::array<std::pair<double, double>, kPoints> GeographicPoints() {
  std::array<std::pair<double, double>, kPoints> points;
  for (int i = 0; i < kPoints; ++i) {
    points[static_cast<std::size_t>(i)] = {kMeridian - 1.5 + 0.03 * i,
                                           18.0 + 0.35 * (i * 37 % 100)};
  }
  return points;
}

}  // namespace bench

#endif  // QUARNFC_BENCH_POINTS_H_
