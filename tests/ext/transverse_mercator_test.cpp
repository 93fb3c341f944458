// SPDX-License-Identifier: MIT
// The exact projection. tests/peers holds it against GeographicLib's elliptic functions.
#include <quarnfc/ext/transverse_mercator.h>
#include <quarnfc/projected.h>

#include <gtest/gtest.h>

#include <cmath>

namespace quarnfc::ext {
namespace {

const TransverseMercatorParameters kUtm50{117.0, 0.0, 500000.0, 0.0, 0.9996};

double MetresApart(const EastNorth& left, const EastNorth& right) {
  return std::hypot(left.east - right.east, left.north - right.north);
}

// Expected values: PROJ 9.1, "+proj=tmerc +lon_0=117 +x_0=500000 +k=0.9996 +ellps=WGS84".
TEST(TransverseMercator, AgreesWithAnotherImplementation) {
  struct Case {
    LonLat at;
    EastNorth plane;
  };
  const Case cases[] = {
      {{116.391, 39.907}, {447945.31341122, 4417612.69556276}},
      {{119.999, 30.0}, {789313.13898318, 3322573.37573181}},
      {{87.0, -25.5}, {-2603121.60801819, -3193059.48981749}},
      {{117.0, 90.0}, {500000.0, 9997964.94302100}},
  };
  const TransverseMercator zone(kWgs84, kUtm50);
  for (const Case& c : cases) {
    EXPECT_LE(MetresApart(zone.Forward(c.at), c.plane), 1e-6) << c.at.lon << ' ' << c.at.lat;
  }
}

TEST(TransverseMercator, InverseUndoesForwardToARoundingWithinThirtyDegrees) {
  const TransverseMercator zone(kCgcs2000, {114.0, 0.0, 500000.0, 0.0, 1.0});
  for (double lat = -89.0; lat < 90.0; lat += 7.3) {
    for (double lon = 84.0; lon <= 144.0; lon += 1.7) {
      const LonLat back = zone.Inverse(zone.Forward({lon, lat}));
      EXPECT_NEAR(back.lon, lon, 1e-12 / std::cos(lat * kRadiansPerDegree)) << lon << ' ' << lat;
      EXPECT_NEAR(back.lat, lat, 1e-12) << lon << ' ' << lat;
    }
  }
}

TEST(TransverseMercator, TheOriginIsExact) {
  const TransverseMercator zone(kCgcs2000, {114.0, 0.0, 500000.0, 200.0, 1.0});
  const EastNorth plane = zone.Forward({114.0, 0.0});
  EXPECT_EQ(plane.east, 500000.0);
  EXPECT_EQ(plane.north, 200.0);
  EXPECT_EQ(zone.Inverse(plane).lon, 114.0);
  EXPECT_EQ(zone.Inverse(plane).lat, 0.0);
}

TEST(TransverseMercator, LatitudeOfOriginMovesTheNorthings) {
  const TransverseMercator from_equator(kKrassowsky1940, {121.0, 0.0, 0.0, 0.0, 1.0});
  const TransverseMercator from_origin(kKrassowsky1940, {121.0, 31.0, 0.0, 1000.0, 1.0});
  EXPECT_NEAR(from_origin.Forward({121.0, 31.0}).north, 1000.0, 1e-9);
  const EastNorth plane = from_origin.Forward({121.5, 31.2});
  EXPECT_NEAR(plane.north,
              from_equator.Forward({121.5, 31.2}).north -
                  from_equator.Forward({121.0, 31.0}).north + 1000.0,
              1e-8);
  EXPECT_NEAR(from_origin.Inverse(plane).lat, 31.2, 1e-12);
}

TEST(TransverseMercator, LongitudesAreTakenTheShortWay) {
  const TransverseMercator zone(kWgs84, {-177.0, 0.0, 500000.0, 0.0, 0.9996});
  EXPECT_LE(MetresApart(zone.Forward({179.0, 10.0}), zone.Forward({-181.0, 10.0})), 1e-8);
  EXPECT_NEAR(zone.Inverse(zone.Forward({179.0, 10.0})).lon, -181.0, 1e-11);
}

TEST(TransverseMercator, WhatIsNotProjectedIsNotANumber) {
  const TransverseMercator zone(kWgs84, kUtm50);
  const double nan = std::nan("");
  for (const LonLat at :
       {LonLat{117.0, 90.001}, LonLat{117.0, -112.9}, LonLat{207.0, 10.0}, LonLat{-63.0, 0.0},
        LonLat{nan, 10.0}, LonLat{117.0, nan}, LonLat{HUGE_VAL, 0.0}}) {
    EXPECT_TRUE(std::isnan(zone.Forward(at).east)) << at.lon << ' ' << at.lat;
    EXPECT_TRUE(std::isnan(zone.ScaleAt(at).factor)) << at.lon << ' ' << at.lat;
  }
  for (const EastNorth at : {EastNorth{500000.0, 1.1e7}, EastNorth{5e7, 0.0}, EastNorth{nan, 0.0},
                             EastNorth{500000.0, nan}, EastNorth{-HUGE_VAL, 0.0}}) {
    EXPECT_TRUE(std::isnan(zone.Inverse(at).lat)) << at.east << ' ' << at.north;
  }
}

TEST(TransverseMercator, ThePolesHaveANorthingAndAScale) {
  const TransverseMercator zone(kWgs84, kUtm50);
  for (const double lat : {90.0, -90.0}) {
    const EastNorth pole = zone.Forward({120.0, lat});
    EXPECT_NEAR(pole.east, 500000.0, 1e-8);
    EXPECT_EQ(zone.Inverse(pole).lat, lat);
    EXPECT_NEAR(zone.ScaleAt({120.0, lat}).factor, 0.9996, 1e-12);
  }
}

// The slope of the plane coordinates themselves: their change over a metre along the meridian.
TEST(TransverseMercator, ScaleAndConvergenceAreTheSlopeOfTheCoordinates) {
  const TransverseMercator zone(kCgcs2000, {114.0, 0.0, 500000.0, 0.0, 1.0});
  for (const LonLat at : {LonLat{115.4, 39.9}, LonLat{112.6, 22.5}, LonLat{120.0, -30.0},
                          LonLat{114.0, 50.0}, LonLat{130.0, 0.0}}) {
    const double step = 1e-4;
    const EastNorth south = zone.Forward({at.lon, at.lat - step});
    const EastNorth north = zone.Forward({at.lon, at.lat + step});
    const double sin_lat = std::sin(at.lat * kRadiansPerDegree);
    const double e2 = kCgcs2000.FirstEccentricitySquared();
    const double meridian_radius =
        kCgcs2000.semi_major_axis * (1 - e2) / std::pow(1 - e2 * sin_lat * sin_lat, 1.5);
    const double length = 2.0 * step * kRadiansPerDegree * meridian_radius;
    const PlaneScale scale = zone.ScaleAt(at);
    EXPECT_NEAR(scale.factor, MetresApart(north, south) / length, 1e-9);
    EXPECT_NEAR(scale.convergence,
                std::atan2(south.east - north.east, north.north - south.north) / kRadiansPerDegree,
                1e-8);
  }
}

TEST(TransverseMercator, ConvergenceIsPositiveEastOfTheMeridianOnTheNorthernHemisphere) {
  const TransverseMercator zone(kCgcs2000, {114.0, 0.0, 500000.0, 0.0, 1.0});
  EXPECT_GT(zone.ScaleAt({115.0, 30.0}).convergence, 0.0);
  EXPECT_LT(zone.ScaleAt({113.0, 30.0}).convergence, 0.0);
  EXPECT_LT(zone.ScaleAt({115.0, -30.0}).convergence, 0.0);
  EXPECT_NEAR(zone.ScaleAt({115.0, 30.0}).convergence, std::sin(30.0 * kRadiansPerDegree), 1e-4);
}

// The closed series stay within their stated bound of the exact projection.
TEST(TransverseMercator, TheClosedSeriesAgreeToAMillimetreWithinAThreeDegreeZone) {
  const CQNGeoCoordinateSystem ellipsoid(6378137.0, 298.257222101);
  const CQNProCoordinateSystem series(ellipsoid, 114.0, 500000.0, 0.0, 1.0);
  const TransverseMercator exact(kCgcs2000, {114.0, 0.0, 500000.0, 0.0, 1.0});
  for (double lat = 0.0; lat <= 54.0; lat += 3.0) {
    for (const double lon : {112.5, 113.2, 114.0, 114.9, 115.5}) {
      EastNorth plane;
      CQNProCoordinateSystem::GeoToGauss(lon, lat, plane.east, plane.north, series);
      EXPECT_LE(MetresApart(plane, exact.Forward({lon, lat})), 0.001) << lon << ' ' << lat;
    }
  }
}

TEST(TransverseMercator, ArraysAreConvertedInPlace) {
  const TransverseMercator zone(kWgs84, kUtm50);
  const LonLat points[] = {{116.0, 30.0}, {117.5, -12.0}, {118.0, 95.0}};
  EastNorth plane[3];
  zone.Forward(points, plane, 3);
  LonLat back[3];
  zone.Inverse(plane, back, 3);
  EXPECT_EQ(plane[1].east, zone.Forward(points[1]).east);
  EXPECT_NEAR(back[0].lon, 116.0, 1e-12);
  EXPECT_TRUE(std::isnan(back[2].lon));
}

TEST(TransverseMercator, ASphereIsAnEllipsoid) {
  const TransverseMercator sphere({6371000.0, HUGE_VAL}, {0.0, 0.0, 0.0, 0.0, 1.0});
  const EastNorth plane = sphere.Forward({0.0, 45.0});
  EXPECT_NEAR(plane.north, 6371000.0 * kPi / 4, 1e-8);
}

}  // namespace
}  // namespace quarnfc::ext
