// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/geo/geo_support.h"

namespace {

using geo_test::Geo;

struct Triple {
  double first;
  double second;
  double third;
};

Triple ToCartesian(double lon, double lat, double height, const Geo& system) {
  Triple p;
  Geo::LonLat2ECI(lon, lat, height, p.first, p.second, p.third, system);
  return p;
}

Triple ToGeodetic(const Triple& p, const Geo& system) {
  Triple g;
  Geo::ECI2LonLat(p.first, p.second, p.third, g.first, g.second, g.third, system);
  return g;
}

const Geo kFullWgs84(6378137.0, 298.257223563);

TEST(EarthFixed, OriginOfLongitudesOnTheEquator) {
  const Triple p = ToCartesian(0.0, 0.0, 0.0, Geo::WGS84);
  EXPECT_EQ(p.first, 6378137.0);
  EXPECT_EQ(p.second, 0.0);
  EXPECT_EQ(p.third, 0.0);
  const Triple g = ToGeodetic({6378137.0, 0.0, 0.0}, Geo::WGS84);
  EXPECT_EQ(g.first, 0.0);
  EXPECT_EQ(g.second, 0.0);
  EXPECT_EQ(g.third, 0.0);
  EXPECT_TRUE(std::signbit(g.third));  // a point on the surface is not outside
}

TEST(EarthFixed, AxesPointEastAndNorth) {
  const Triple east = ToCartesian(90.0, 0.0, 10.0, Geo::CGCS2000);
  EXPECT_NEAR(east.first, 0.0, 1e-8);
  EXPECT_NEAR(east.second, 6378147.0, 1e-8);
  const Triple pole = ToCartesian(0.0, 90.0, 10.0, Geo::CGCS2000);
  EXPECT_NEAR(pole.first, 0.0, 1e-8);
  EXPECT_NEAR(pole.third, Geo::CGCS2000.GetSemiMinorAxis() + 10.0, 1e-8);
}

// IOGP Guidance Note 7-2, geographic/geocentric conversions, WGS 84: latitude 53d48'33.820"N,
// longitude 2d07'46.380"E, height 73.0 m is at X 3771793.968, Y 140253.342, Z 5124304.349.
TEST(EarthFixed, PublishedPointIsMet) {
  const double lat = 53.0 + 48.0 / 60.0 + 33.820 / 3600.0;
  const double lon = 2.0 + 7.0 / 60.0 + 46.380 / 3600.0;
  const Triple p = ToCartesian(lon, lat, 73.0, kFullWgs84);
  EXPECT_NEAR(p.first, 3771793.968, 0.01);
  EXPECT_NEAR(p.second, 140253.342, 0.01);
  EXPECT_NEAR(p.third, 5124304.349, 0.01);
  const Triple g = ToGeodetic({3771793.968, 140253.342, 5124304.349}, kFullWgs84);
  EXPECT_NEAR(g.first, lon, 1e-7);
  EXPECT_NEAR(g.second, lat, 1e-7);
  EXPECT_NEAR(g.third, 73.0, 0.01);
}

TEST(EarthFixed, WayBackOverTheWorldIsWithinMicrons) {
  for (const double height : {-10000.0, 0.0, 8848.86, 400000.0, 35786000.0}) {
    for (int lon = -180; lon <= 180; lon += 30) {
      for (int lat = -90; lat <= 90; lat += 5) {
        const Triple g = ToGeodetic(ToCartesian(lon, lat, height, Geo::WGS84), Geo::WGS84);
        EXPECT_NEAR(g.second, lat, 1e-11) << lon << ' ' << lat << ' ' << height;
        EXPECT_NEAR(g.third, height, 1e-6 + height * 1e-12) << lon << ' ' << lat << ' ' << height;
        if (lat > -90 && lat < 90) {
          EXPECT_NEAR(std::remainder(g.first - lon, 360.0), 0.0, 1e-11);
        }
      }
    }
  }
}

TEST(EarthFixed, PointsBelowTheSurfaceHaveNegativeHeights) {
  const Triple g = ToGeodetic(ToCartesian(113.0, 28.0, -500.0, Geo::XiAn80), Geo::XiAn80);
  EXPECT_NEAR(g.third, -500.0, 1e-6);
}

TEST(EarthFixed, CentreGivesAResultWithoutMeaning) {
  const Triple centre = ToGeodetic({0.0, 0.0, 0.0}, Geo::WGS84);
  EXPECT_TRUE(std::isnan(centre.third));
  // Near the centre the point is scaled along its ray: no foot point is sought.
  const Triple near = ToGeodetic({1000.0, 0.0, 0.0}, Geo::WGS84);
  EXPECT_EQ(near.first, 0.0);
  EXPECT_EQ(near.second, 0.0);
  EXPECT_DOUBLE_EQ(near.third, -6377137.0);
}

// Every finite input comes back, whatever the ellipsoid: at the ends of the range of double, inside
// flat and needle-like bodies, and where axes are 0, infinite or not a number.
TEST(EarthFixed, EveryInputReturns) {
  const double values[] = {0.0,   -0.0, 1e-320, -1e-160, 1.0,   0.3,   -2e6,
                           6.4e6, 1e20, -1e100, 1e153,   1e154, 1e160, -1.7e308};
  const double flattenings[] = {298.257,
                                1.0,
                                1.0000001,
                                1.5,
                                -1.0,
                                -0.001,
                                0.5,
                                0.0,
                                std::numeric_limits<double>::infinity(),
                                std::numeric_limits<double>::quiet_NaN()};
  for (const double axis : {6378137.0, 1.0, 0.0, 1e-150, 1e150, -6378137.0}) {
    for (const double flattening : flattenings) {
      const Geo system(axis, flattening);
      for (const double x : values) {
        for (const double y : {0.0, 3.0, -1e200}) {
          for (const double z : values) ToGeodetic({x, y, z}, system);
        }
      }
    }
  }
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_TRUE(std::isnan(ToGeodetic({infinity, 0.0, 0.0}, Geo::WGS84).third));
}

TEST(LocalFrame, ColumnsAreEastNorthUpAndTheOrigin) {
  const Triple p = ToCartesian(113.0, 28.0, 100.0, Geo::CGCS2000);
  double m[4][4];
  Geo::EastNorthUpToFixedFrame(p.first, p.second, p.third, true, m, Geo::CGCS2000);
  const double degree = 3.141592653589793 / 180.0;
  const double sl = std::sin(113.0 * degree);
  const double cl = std::cos(113.0 * degree);
  // Off the surface the direction of up is that of the ellipsoid through the point.
  const double expected_east[3] = {-sl, cl, 0.0};
  for (int row = 0; row < 3; ++row) EXPECT_NEAR(m[row][0], expected_east[row], 1e-12);
  EXPECT_NEAR(m[2][2], std::sin(28.0 * degree), 1e-6);
  EXPECT_NEAR(m[2][1], std::cos(28.0 * degree), 1e-6);
  EXPECT_EQ(m[0][3], p.first);
  EXPECT_EQ(m[1][3], p.second);
  EXPECT_EQ(m[2][3], p.third);
}

TEST(LocalFrame, RotationIsOrthonormalAndRightHanded) {
  for (int lon = -180; lon <= 180; lon += 45) {
    for (int lat = -85; lat <= 85; lat += 17) {
      const Triple p = ToCartesian(lon, lat, 50.0, Geo::WGS84);
      double m[4][4];
      Geo::EastNorthUpToFixedFrame(p.first, p.second, p.third, false, m, Geo::WGS84);
      for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
          const double dot = m[0][i] * m[0][j] + m[1][i] * m[1][j] + m[2][i] * m[2][j];
          EXPECT_NEAR(dot, i == j ? 1.0 : 0.0, 1e-14);
        }
      }
      const double up_x = m[1][0] * m[2][1] - m[2][0] * m[1][1];
      EXPECT_NEAR(up_x, m[0][2], 1e-14);
    }
  }
}

TEST(LocalFrame, WithoutTranslationTheLastColumnAndRowAreThoseOfARotation) {
  double m[4][4];
  Geo::EastNorthUpToFixedFrame(1e6, 2e6, 3e6, false, m, Geo::WGS84);
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(m[i][3], 0.0);
    EXPECT_EQ(m[3][i], 0.0);
  }
  EXPECT_EQ(m[3][3], 1.0);
}

TEST(LocalFrame, OnThePolarAxisEastAndNorthAreZero) {
  double m[4][4];
  Geo::EastNorthUpToFixedFrame(0.0, 0.0, 6356752.0, true, m, Geo::WGS84);
  for (int row = 0; row < 3; ++row) {
    EXPECT_EQ(m[row][0], 0.0);
    EXPECT_EQ(m[row][1], 0.0);
  }
  EXPECT_EQ(m[2][2], 1.0);
  EXPECT_EQ(m[2][3], 6356752.0);
}

TEST(LocalFrame, AtTheCentreTheMatrixHasNoDirections) {
  double m[4][4];
  Geo::EastNorthUpToFixedFrame(0.0, 0.0, 0.0, true, m, Geo::WGS84);
  for (const auto& row : m) {
    for (int column = 0; column < 3; ++column) EXPECT_EQ(row[column], 0.0);
  }
}

}  // namespace
