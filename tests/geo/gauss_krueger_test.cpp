// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/geo/geo_support.h"
#include "tests/geo/reference_transverse_mercator.h"
#include "tests/geo/series_bound.h"

namespace geo_test {
namespace {

struct Pair {
  double first;
  double second;
};

Pair ToPlane(double lon, double lat, const Pro& system) {
  Pair plane;
  Pro::GeoToGauss(lon, lat, plane.first, plane.second, system);
  return plane;
}

Pair ToGeographic(const Pair& plane, const Pro& system) {
  Pair degrees;
  Pro::GaussToGeo(plane.first, plane.second, degrees.first, degrees.second, system);
  return degrees;
}

double Degrees(double degrees, double minutes, double seconds) {
  return degrees + minutes / 60.0 + seconds / 3600.0;
}

// Evaluated in double precision, operation by operation, by a separate program. The tolerance is a
// few units in the last place: mathematical functions differ by one between run-time libraries.
TEST(GaussKrueger, SeriesGivesItsValuesToTheLastDigits) {
  const struct {
    const Geo* geo;
    double meridian, false_northing, scale;
    double lon, lat;
    double east, north;
    double lon_back, lat_back;
  } cases[] = {
      {&Geo::WGS84, 117, 0.0, 0.9996, 116.395645, 39.929986, 448359.61932011961, 4420161.1916876724,
       116.39564499999079, 39.929986001040952},
      {&Geo::CGCS2000, 114, 0.0, 1.0, 114.0, 30.0, 500000, 3320113.3978722631, 114,
       30.000000000437943},
      {&Geo::CGCS2000, 114, 0.0, 1.0, 115.5, 22.5, 654356.92889222899, 2489940.6545411688,
       115.50000000000543, 22.499999999243173},
      {&Geo::Beijing54, 120, 0.0, 1.0, 121.487899, 31.249162, 641739.674024701, 3459615.6117130718,
       121.48789900002764, 31.249162000349983},
      {&Geo::XiAn80, 87, 0.0, 1.0, 87.564988, 43.840380, 545436.90112322662, 4856244.3219762668,
       87.564988000011795, 43.840380001245315},
      {&Geo::WGS84, -69, 1e7, 0.9996, -70.65, -33.45, 346642.69488106563, 6297606.8481778037,
       -70.650000000057531, -33.450000000393977},
      {&Geo::WGS84, 117, 0.0, 0.9996, 120.0, 0.0, 833978.55682144361, 1.7971366636270264e-09,
       119.99999999989814, 1.6236826201887122e-14},
      {&Geo::CGCS2000, 135, 0.0, 1.0, 132.0, 53.5, 300949.39585151733, 5934456.5064576752,
       131.99999999388902, 53.500000006719112},
      {&Geo::Beijing54, 75, 0.0, 1.0, 78.0, 84.0, 535009.2346174313, 9332899.03391934,
       78.000000010714103, 84.000000003934602},
      {&Geo::CGCS2000, 105, 0.0, 1.0, 115.0, 10.0, 1601695.6313789033, 1122674.8710536871,
       115.00000128533458, 9.9999778260330014},
  };
  for (const auto& c : cases) {
    const Pro system(*c.geo, c.meridian, 500000.0, c.false_northing, c.scale);
    const Pair plane = ToPlane(c.lon, c.lat, system);
    EXPECT_NEAR(plane.first, c.east, 4e-9) << c.lon << ' ' << c.lat;
    EXPECT_NEAR(plane.second, c.north, 8e-9) << c.lon << ' ' << c.lat;
    const Pair back = ToGeographic({c.east, c.north}, system);
    EXPECT_NEAR(back.first, c.lon_back, 1e-13) << c.lon << ' ' << c.lat;
    EXPECT_NEAR(back.second, c.lat_back, 1e-13) << c.lon << ' ' << c.lat;
  }
}

TEST(GaussKrueger, OriginOfTheZoneIsExact) {
  for (const Geo* geo : {&Geo::Beijing54, &Geo::XiAn80, &Geo::WGS84, &Geo::CGCS2000}) {
    const Pro system(*geo, 114.0, 500000.0, 10000000.0, 0.9996);
    const Pair plane = ToPlane(114.0, 0.0, system);
    EXPECT_EQ(plane.first, 500000.0);
    EXPECT_EQ(plane.second, 10000000.0);
    const Pair back = ToGeographic(plane, system);
    EXPECT_EQ(back.first, 114.0);
    EXPECT_EQ(back.second, 0.0);
  }
}

TEST(GaussKrueger, CentralMeridianIsStraightAndTrueToScale) {
  const double scale = 0.9996;
  const Pro scaled(Geo::CGCS2000, 114.0, 500000.0, 1000.0, scale);
  const Pro plain(Geo::CGCS2000, 114.0, 0.0, 0.0, 1.0);
  for (int lat = -85; lat <= 85; lat += 5) {
    const double arc = ToPlane(114.0, lat, plain).second;
    const Pair plane = ToPlane(114.0, lat, scaled);
    EXPECT_EQ(plane.first, 500000.0) << lat;
    EXPECT_EQ(plane.second, arc * scale + 1000.0) << lat;
  }
}

TEST(GaussKrueger, SouthIsNegativeBeforeTheFalseNorthing) {
  const Pro north_only(Geo::WGS84, 117.0, 500000.0, 0.0, 1.0);
  EXPECT_LT(ToPlane(118.0, -30.0, north_only).second, -3e6);
  Pro southern;
  ASSERT_TRUE(southern.setByUTMCode(-50));
  EXPECT_GT(ToPlane(118.0, -30.0, southern).second, 6e6);
}

TEST(GaussKrueger, EastAndWestAreMirrorImages) {
  const Pro system(Geo::CGCS2000, 0.0, 0.0, 0.0, 1.0);
  for (double lon = 0.0; lon <= 3.0; lon += 0.5) {
    const Pair east = ToPlane(lon, 35.0, system);
    const Pair west = ToPlane(-lon, 35.0, system);
    EXPECT_EQ(east.first, -west.first);
    EXPECT_EQ(east.second, west.second);
  }
}

TEST(GaussKrueger, LongitudeDifferencesAreNotWrapped) {
  Pro system;
  ASSERT_TRUE(system.setByUTMCode(60));  // central meridian 177
  EXPECT_GT(std::fabs(ToPlane(-179.0, 10.0, system).first), 1e7);
  EXPECT_DOUBLE_EQ(ToPlane(181.0, 10.0, system).first,
                   1000000.0 - ToPlane(173.0, 10.0, system).first);
}

// The 15-digit pi puts the pole a hair off the singularity of the tangent, so that the result is a
// large or even plausible number instead of an infinity: it is what the series gives in doubles.
TEST(GaussKrueger, PolesAreUnguarded) {
  const Pro system(Geo::CGCS2000, 105.0, 500000.0, 0.0, 1.0);
  const Pair pole = ToPlane(105.0, 90.0, system);
  EXPECT_EQ(pole.first, 500000.0);
  EXPECT_NEAR(pole.second, 10001965.7294, 0.001);
  ToPlane(106.0, -90.0, system);
  ToPlane(106.0, 1e300, system);
}

TEST(GaussKrueger, NonFiniteAndExtremeInputsReturn) {
  const double infinity = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const Pro systems[] = {Pro(), Pro(Geo(0.0, 0.0), nan, infinity, 0.0, 0.0)};
  for (const Pro& system : systems) {
    for (const double value : {infinity, -infinity, nan, 1.7e308, -1e200}) {
      ToPlane(value, 10.0, system);
      ToPlane(10.0, value, system);
      ToGeographic({value, 10.0}, system);
      ToGeographic({10.0, value}, system);
    }
  }
  EXPECT_TRUE(std::isnan(ToPlane(nan, 10.0, Pro()).first));
}

// The textbook form adds the term of the sixth order with its factor N tan(latitude).
TEST(GaussKrueger, SixthOrderTermOfTheNorthingIsPracticallyAbsent) {
  const Pro system(Geo::CGCS2000, 0.0, 0.0, 0.0, 1.0);
  const ReferenceTransverseMercator exact(6378137.0, 298.257222101);
  double east;
  double north;
  exact.Forward(3.0, 30.0, east, north);
  EXPECT_NEAR(ToPlane(3.0, 30.0, system).second - north, -0.00205, 0.0003);
  EXPECT_NEAR(ToPlane(3.0, 30.0, system).first, east, 0.0001);
}

// Ordnance Survey, "A guide to coordinate systems in Great Britain", annexe C: the worked example
// at 52d39'27.2531"N 1d43'4.5177"E, with the origin at 49 degrees north turned into a northing.
TEST(GaussKrueger, OrdnanceSurveyExampleIsMet) {
  const Geo airy(6377563.396, 299.3249646);
  const Pro from_equator(airy, -2.0, 400000.0, 0.0, 0.9996012717);
  const double origin = ToPlane(-2.0, 49.0, from_equator).second;
  const Pro grid(airy, -2.0, 400000.0, -100000.0 - origin, 0.9996012717);
  const Pair plane = ToPlane(Degrees(1, 43, 4.5177), Degrees(52, 39, 27.2531), grid);
  EXPECT_NEAR(plane.first, 651409.903, 0.003);
  EXPECT_NEAR(plane.second, 313177.270, 0.003);
  const Pair back = ToGeographic({651409.903, 313177.270}, grid);
  EXPECT_NEAR(back.first, Degrees(1, 43, 4.5177), 3e-8);
  EXPECT_NEAR(back.second, Degrees(52, 39, 27.2531), 3e-8);
}

// IOGP Guidance Note 7-2, Transverse Mercator: 50d30'N 0d30'E on the British National Grid.
TEST(GaussKrueger, GuidanceNoteExampleIsMet) {
  const Geo airy(6377563.396, 299.32496);
  const Pro from_equator(airy, -2.0, 400000.0, 0.0, 0.9996012717);
  const double origin = ToPlane(-2.0, 49.0, from_equator).second;
  const Pro grid(airy, -2.0, 400000.0, -100000.0 - origin, 0.9996012717);
  const Pair plane = ToPlane(0.5, 50.5, grid);
  EXPECT_NEAR(plane.first, 577274.99, 0.01);
  EXPECT_NEAR(plane.second, 69740.50, 0.01);
}

// J. P. Snyder, "Map Projections: A Working Manual" (1987), page 269: UTM on Clarke 1866 at
// 40d30'N 73d30'W, central meridian 75 west.
TEST(GaussKrueger, SnyderExampleIsMet) {
  const Pro system(Geo(6378206.4, 294.978698213898), -75.0, 0.0, 0.0, 0.9996);
  const Pair plane = ToPlane(-73.5, 40.5, system);
  EXPECT_NEAR(plane.first, 127106.5, 0.05);
  EXPECT_NEAR(plane.second, 4484124.4, 0.05);
  const Pair back = ToGeographic({127106.5, 4484124.4}, system);
  EXPECT_NEAR(back.first, -73.5, 1e-6);
  EXPECT_NEAR(back.second, 40.5, 1e-6);
}

TEST(GaussKrueger, ForwardDiffersFromTheExactProjectionByTheOmittedTerms) {
  const Pro system(Geo::CGCS2000, 0.0, 0.0, 0.0, 1.0);
  const ReferenceTransverseMercator exact(6378137.0, 298.257222101);
  for (double lon = 0.0; lon <= 6.0; lon += 0.25) {
    for (double lat = -84.0; lat <= 84.0; lat += 2.0) {
      double east;
      double north;
      exact.Forward(lon, lat, east, north);
      const Pair plane = ToPlane(lon, lat, system);
      const SeriesBound bound(Geo::CGCS2000, lon, lat);
      EXPECT_LE(std::fabs(plane.first - east), bound.ForwardEast()) << lon << ' ' << lat;
      EXPECT_LE(std::fabs(plane.second - north), bound.ForwardNorth()) << lon << ' ' << lat;
    }
  }
}

TEST(GaussKrueger, InverseDiffersFromTheExactProjectionByTheOmittedTerms) {
  const Pro system(Geo::CGCS2000, 0.0, 0.0, 0.0, 1.0);
  const ReferenceTransverseMercator exact(6378137.0, 298.257222101);
  const double degree = 3.14159265358979323846 / 180.0;
  for (double lon = 0.0; lon <= 6.0; lon += 0.25) {
    for (double lat = -84.0; lat <= 84.0; lat += 2.0) {
      Pair plane;
      exact.Forward(lon, lat, plane.first, plane.second);
      const Pair back = ToGeographic(plane, system);
      const SeriesBound bound(Geo::CGCS2000, lon, lat);
      const double radius = 6378137.0 * degree;
      EXPECT_LE(std::fabs(back.first - lon) * radius * std::cos(lat * degree), bound.InverseEast())
          << lon << ' ' << lat;
      EXPECT_LE(std::fabs(back.second - lat) * radius, bound.InverseNorth()) << lon << ' ' << lat;
    }
  }
}

// Within a 3-degree zone, from the equator to 80 degrees, there and back is exact to 2 mm, on every
// ellipsoid and both hemispheres.
TEST(GaussKrueger, WayBackOverTheWorldIsWithinTwoMillimetres) {
  const double metres_per_degree = 111320.0;
  const double degree = 3.14159265358979323846 / 180.0;
  for (const Geo* geo : {&Geo::Beijing54, &Geo::XiAn80, &Geo::WGS84, &Geo::CGCS2000}) {
    for (int meridian = -180; meridian <= 180; meridian += 30) {
      const Pro system(*geo, meridian, 500000.0, 10000000.0, 0.9996);
      for (double lon = -1.5; lon <= 1.5; lon += 0.5) {
        for (int lat = -80; lat <= 80; lat += 4) {
          const Pair back = ToGeographic(ToPlane(meridian + lon, lat, system), system);
          const double east =
              (back.first - meridian - lon) * metres_per_degree * std::cos(lat * degree);
          const double north = (back.second - lat) * metres_per_degree;
          EXPECT_LT(std::hypot(east, north), 0.002) << meridian + lon << ' ' << lat;
        }
      }
    }
  }
}

TEST(GaussKrueger, ResultsMayReplaceTheArguments) {
  const Pro system;
  double x = 121.0;
  double y = 31.0;
  const Pair plane = ToPlane(x, y, system);
  Pro::GeoToGauss(x, y, x, y, system);
  EXPECT_EQ(x, plane.first);
  EXPECT_EQ(y, plane.second);
}

}  // namespace
}  // namespace geo_test
