// SPDX-License-Identifier: MIT
// Coordinate systems by EPSG code. tests/peers holds every code against PROJ's database.
#include <quarnfc/ext/official_systems.h>

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace quarnfc::ext {
namespace {

TEST(OfficialSystems, CodesHaveTheirOfficialParameters) {
  struct Case {
    int code;
    const char* datum;
    double meridian;
    double false_easting;
    double false_northing;
    double scale;
    int zone;
  };
  const Case cases[] = {
      {2327, "Xian 1980", 75.0, 13500000.0, 0.0, 1.0, 13},
      {2348, "Xian 1980", 135.0, 500000.0, 0.0, 1.0, 0},
      {2362, "Xian 1980", 114.0, 38500000.0, 0.0, 1.0, 38},
      {2370, "Xian 1980", 75.0, 500000.0, 0.0, 1.0, 0},
      {2421, "Beijing 1954", 135.0, 45500000.0, 0.0, 1.0, 45},
      {2442, "Beijing 1954", 135.0, 500000.0, 0.0, 1.0, 0},
      {21420, "Beijing 1954", 117.0, 20500000.0, 0.0, 1.0, 20},
      {21453, "Beijing 1954", 75.0, 500000.0, 0.0, 1.0, 0},
      {4491, "CGCS2000", 75.0, 13500000.0, 0.0, 1.0, 13},
      {4512, "CGCS2000", 135.0, 500000.0, 0.0, 1.0, 0},
      {4526, "CGCS2000", 114.0, 38500000.0, 0.0, 1.0, 38},
      {4547, "CGCS2000", 114.0, 500000.0, 0.0, 1.0, 0},
      {32650, "WGS 84", 117.0, 500000.0, 0.0, 0.9996, 0},
      {32701, "WGS 84", -177.0, 500000.0, 10000000.0, 0.9996, 0},
      {32760, "WGS 84", 177.0, 500000.0, 10000000.0, 0.9996, 0},
  };
  for (const Case& c : cases) {
    const auto system = FindOfficialSystem(c.code);
    ASSERT_TRUE(system.has_value()) << c.code;
    EXPECT_EQ(system->code, c.code);
    EXPECT_EQ(system->kind, SystemKind::kTransverseMercator);
    EXPECT_EQ(std::string(system->datum), c.datum) << c.code;
    EXPECT_EQ(system->parameters.central_meridian, c.meridian) << c.code;
    EXPECT_EQ(system->parameters.false_easting, c.false_easting) << c.code;
    EXPECT_EQ(system->parameters.false_northing, c.false_northing) << c.code;
    EXPECT_EQ(system->parameters.scale_factor, c.scale) << c.code;
    EXPECT_EQ(system->parameters.latitude_of_origin, 0.0) << c.code;
    EXPECT_EQ(system->zone, c.zone) << c.code;
  }
}

TEST(OfficialSystems, GeographicCodesHaveTheirEllipsoid) {
  EXPECT_EQ(FindOfficialSystem(4214)->ellipsoid.inverse_flattening, 298.3);
  EXPECT_EQ(FindOfficialSystem(4610)->ellipsoid.semi_major_axis, 6378140.0);
  EXPECT_EQ(FindOfficialSystem(4490)->ellipsoid.inverse_flattening, 298.257222101);
  EXPECT_EQ(FindOfficialSystem(4326)->ellipsoid.inverse_flattening, 298.257223563);
  EXPECT_EQ(FindOfficialSystem(4326)->kind, SystemKind::kGeographic);
  EXPECT_EQ(FindOfficialSystem(3857)->kind, SystemKind::kWebMercator);
}

TEST(OfficialSystems, TheNeighboursOfTheTableAreNotInIt) {
  for (const int code : {0, -4326, 2326, 2391, 2400, 2443, 4213, 4490 + 65536, 4555, 21412, 21424,
                         21452, 21464, 32600, 32661, 32700, 32761, 32501, 3395}) {
    EXPECT_FALSE(FindOfficialSystem(code).has_value()) << code;
  }
}

TEST(OfficialSystems, AZoneNumberStandsInFrontOfTheEasting) {
  const auto system = FindOfficialSystem(4526);
  const EastNorth plane = system->Projection().Forward({114.3055, 30.5928});
  EXPECT_EQ(std::floor(plane.east / 1e6), 38.0);
  const LonLat back = system->Projection().Inverse(plane);
  EXPECT_NEAR(back.lon, 114.3055, 1e-12);
}

// The shortened flattening moves northings by centimetres.
TEST(OfficialSystems, TheFlatteningOfWgs84IsTheOfficialOne) {
  const TransverseMercator shortened({6378137.0, 298.257}, {117.0, 0.0, 500000.0, 0.0, 0.9996});
  const double official = FindOfficialSystem(32650)->Projection().Forward({117.0, 45.0}).north;
  EXPECT_NEAR(official - shortened.Forward({117.0, 45.0}).north, 0.018, 0.0005);
}

}  // namespace
}  // namespace quarnfc::ext
