// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>

#include "tests/geo/geo_support.h"

namespace {

struct Pair {
  double first;
  double second;
};

Pair ToPlane(double lon, double lat) {
  Pair plane;
  QNWebMercator::LonLat2WebMercator(lon, lat, plane.first, plane.second);
  return plane;
}

Pair FromPlane(double x, double y) {
  Pair degrees;
  QNWebMercator::WebMercator2LonLat(x, y, degrees.first, degrees.second);
  return degrees;
}

TEST(WebMercator, EquatorIsExactlyZero) {
  const Pair antimeridian = ToPlane(180.0, 0.0);
  EXPECT_EQ(antimeridian.first, 20037508.3427892);
  EXPECT_EQ(antimeridian.second, 0.0);
  const Pair origin = FromPlane(0.0, 0.0);
  EXPECT_EQ(origin.first, 0.0);
  EXPECT_EQ(origin.second, 0.0);
}

TEST(WebMercator, ValuesWithinATenthOfAMicronOfTheEquatorSnapToIt) {
  EXPECT_EQ(ToPlane(0.0, 8e-14).second, 0.0);
  EXPECT_NE(ToPlane(0.0, 1e-10).second, 0.0);
  EXPECT_EQ(FromPlane(0.0, 0.001).second, 0.0);
  EXPECT_NE(FromPlane(0.0, 0.01).second, 0.0);
}

// IOGP Guidance Note 7-2, Popular Visualisation Pseudo-Mercator: latitude 24d22'54.433"N, longitude
// 100d20'00.000"W is at -11169055.58, 2800000.00.
TEST(WebMercator, PublishedPointIsMet) {
  const double lon = -(100.0 + 20.0 / 60.0);
  const double lat = 24.0 + 22.0 / 60.0 + 54.433 / 3600.0;
  const Pair plane = ToPlane(lon, lat);
  EXPECT_NEAR(plane.first, -11169055.58, 0.01);
  EXPECT_NEAR(plane.second, 2800000.00, 0.01);
  const Pair degrees = FromPlane(-11169055.58, 2800000.00);
  EXPECT_NEAR(degrees.first, lon, 1e-7);
  EXPECT_NEAR(degrees.second, lat, 1e-7);
}

TEST(WebMercator, EdgeOfTheWebMapIsASquare) {
  const double edge = 85.0511287798066;
  EXPECT_NEAR(ToPlane(0.0, edge).second, 20037508.3427892, 1e-5);
  EXPECT_NEAR(FromPlane(0.0, 20037508.3427892).second, edge, 1e-12);
}

TEST(WebMercator, WayBackOverTheWorldIsBelowAMicron) {
  for (int lon = -180; lon <= 180; lon += 15) {
    for (int lat = -89; lat <= 89; ++lat) {
      const Pair plane = ToPlane(lon, lat);
      const Pair degrees = FromPlane(plane.first, plane.second);
      EXPECT_NEAR(degrees.first, lon, 1e-12) << lon << ' ' << lat;
      EXPECT_NEAR(degrees.second, lat, 1e-11) << lon << ' ' << lat;
    }
  }
}

TEST(WebMercator, NothingIsWrappedOrClamped) {
  EXPECT_DOUBLE_EQ(ToPlane(540.0, 10.0).first, 3.0 * 20037508.3427892);
  EXPECT_DOUBLE_EQ(FromPlane(-3.0 * 20037508.3427892, 0.0).first, -540.0);
  EXPECT_FALSE(std::fabs(ToPlane(0.0, -90.0).second) < 1e8);  // infinite or very large
  EXPECT_FALSE(std::fabs(ToPlane(0.0, 90.0).second) < 1e8);
  EXPECT_TRUE(std::isnan(ToPlane(0.0, 95.0).second));  // beyond the pole
}

}  // namespace
