// SPDX-License-Identifier: MIT
// Zones of Gauss-Krueger and UTM.
#include <quarnfc/ext/zones.h>

#include <gtest/gtest.h>

#include <cmath>

namespace quarnfc::ext {
namespace {

TEST(Zones, LongitudesHaveTheirZone) {
  struct Case {
    double lon;
    int of_3_degrees;
    int of_6_degrees;
  };
  const Case cases[] = {
      {0.0, 120, 1},    {1.4999, 120, 1},   {1.5, 1, 1},        {5.9999, 2, 1},  {6.0, 2, 2},
      {73.5, 25, 13},   {114.3, 38, 20},    {112.5, 38, 19},    {115.5, 39, 20}, {120.0, 40, 21},
      {135.0, 45, 23},  {178.4999, 59, 30}, {178.5, 60, 30},    {180.0, 60, 31}, {-180.0, 60, 31},
      {-177.0, 61, 31}, {-1.5, 120, 60},    {-1.5001, 119, 60}, {474.3, 38, 20}, {359.0, 120, 60},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(GaussZone(c.lon, ZoneWidth::k3Degrees), c.of_3_degrees) << c.lon;
    EXPECT_EQ(GaussZone(c.lon, ZoneWidth::k6Degrees), c.of_6_degrees) << c.lon;
  }
  for (const double none : {std::nan(""), HUGE_VAL, -HUGE_VAL}) {
    EXPECT_EQ(GaussZone(none, ZoneWidth::k3Degrees), 0);
  }
}

TEST(Zones, EveryLongitudeLiesWithinHalfAZoneOfItsMeridian) {
  for (double lon = -180.0; lon <= 180.0; lon += 0.37) {
    for (const ZoneWidth width : {ZoneWidth::k3Degrees, ZoneWidth::k6Degrees}) {
      const double meridian = CentralMeridian(GaussZone(lon, width), width);
      EXPECT_LE(std::fabs(std::remainder(lon - meridian, 360.0)), Degrees(width) / 2.0) << lon;
    }
  }
}

TEST(Zones, ZonesHaveTheirMeridian) {
  EXPECT_EQ(CentralMeridian(38, ZoneWidth::k3Degrees), 114.0);
  EXPECT_EQ(CentralMeridian(20, ZoneWidth::k6Degrees), 117.0);
  EXPECT_EQ(CentralMeridian(60, ZoneWidth::k3Degrees), 180.0);
  EXPECT_EQ(CentralMeridian(61, ZoneWidth::k3Degrees), -177.0);
  EXPECT_EQ(CentralMeridian(31, ZoneWidth::k6Degrees), -177.0);
  EXPECT_EQ(CentralMeridian(120, ZoneWidth::k3Degrees), 0.0);
  for (const int none : {0, -1, 121}) {
    EXPECT_TRUE(std::isnan(CentralMeridian(none, ZoneWidth::k3Degrees))) << none;
  }
  EXPECT_TRUE(std::isnan(CentralMeridian(61, ZoneWidth::k6Degrees)));
}

TEST(Zones, TheBestZoneIsThatOfTheMiddle) {
  EXPECT_EQ(BestZone(113.0, 115.0, ZoneWidth::k3Degrees), 38);
  EXPECT_EQ(BestZone(108.3, 116.1, ZoneWidth::k3Degrees), 37);
  EXPECT_EQ(BestZone(179.0, -177.0, ZoneWidth::k3Degrees), 60);  // middle: 181
  EXPECT_EQ(BestZone(std::nan(""), 115.0, ZoneWidth::k3Degrees), 0);
}

TEST(Zones, UtmZonesKnowNorwayAndSvalbard) {
  struct Case {
    double lon;
    double lat;
    int zone;
  };
  const Case cases[] = {
      {117.0, 30.0, 50}, {117.0, -30.0, -50}, {-180.0, 0.0, 1}, {180.0, 0.0, 1},  {179.9, 10.0, 60},
      {5.0, 60.0, 32},   {2.9, 60.0, 31},     {5.0, 55.9, 31},  {8.0, 78.0, 31},  {9.0, 78.0, 33},
      {20.9, 73.0, 33},  {21.0, 73.0, 35},    {41.9, 80.0, 37}, {42.0, 80.0, 38}, {5.0, -60.0, -31},
      {0.0, 84.1, 0},    {0.0, -80.1, 0},
  };
  for (const Case& c : cases) EXPECT_EQ(UtmZone(c.lon, c.lat), c.zone) << c.lon << ' ' << c.lat;
  EXPECT_EQ(UtmZone(std::nan(""), 0.0), 0);
  EXPECT_EQ(UtmZone(0.0, std::nan("")), 0);
}

TEST(Zones, PrefixedEastingsGoBothWays) {
  EXPECT_EQ(PrefixEasting(38, 529283.4), 38529283.4);
  const auto three = SplitPrefixedEasting(38395837.25);
  ASSERT_TRUE(three.has_value());
  EXPECT_EQ(three->zone, 38);
  EXPECT_EQ(three->easting, 395837.25);
  EXPECT_EQ(three->width, ZoneWidth::k3Degrees);
  const auto six = SplitPrefixedEasting(20500000.0);
  ASSERT_TRUE(six.has_value());
  EXPECT_EQ(six->zone, 20);
  EXPECT_EQ(six->width, ZoneWidth::k6Degrees);
}

TEST(Zones, PlainEastingsAreNotSplit) {
  for (const double plain :
       {500000.0, 0.0, -38395837.0, 12999999.9, 46000000.0, 3839583725.0, HUGE_VAL, std::nan("")}) {
    EXPECT_FALSE(SplitPrefixedEasting(plain).has_value()) << plain;
  }
}

}  // namespace
}  // namespace quarnfc::ext
