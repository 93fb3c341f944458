// SPDX-License-Identifier: MIT
// Geographic and Earth-fixed coordinates.
#include <quarnfc/ext/coordinates.h>
#include <quarnfc/geographic.h>

#include <gtest/gtest.h>

#include <cmath>

namespace quarnfc::ext {
namespace {

TEST(ExtCoordinates, EarthFixedAgreesWithTheGeographicSystem) {
  const CQNGeoCoordinateSystem system(6378137.0, 298.257223563);
  for (const LonLatHeight at : {LonLatHeight{114.3, 30.6, 23.0}, LonLatHeight{-70.0, -45.0, 8848.0},
                                LonLatHeight{180.0, 0.0, -100.0}}) {
    double x, y, z;
    CQNGeoCoordinateSystem::LonLat2ECI(at.lon, at.lat, at.height, x, y, z, system);
    const Cartesian fixed = ToCartesian(kWgs84, {at.lon, at.lat}, at.height);
    EXPECT_NEAR(fixed.x, x, 1e-6);
    EXPECT_NEAR(fixed.y, y, 1e-6);
    EXPECT_NEAR(fixed.z, z, 1e-6);
  }
}

TEST(ExtCoordinates, GeographicUndoesEarthFixedAtEveryHeight) {
  for (const double height : {-5000000.0, -10000.0, 0.0, 8848.0, 400000.0, 36000000.0}) {
    for (double lat = -90.0; lat <= 90.0; lat += 7.5) {
      const LonLatHeight back =
          ToGeographic(kCgcs2000, ToCartesian(kCgcs2000, {113.0, lat}, height));
      EXPECT_NEAR(back.lat, lat, 1e-11) << height;
      EXPECT_NEAR(back.height, height, 1e-6) << lat;
      if (std::fabs(lat) < 90.0) {
        EXPECT_NEAR(back.lon, 113.0, 1e-12);
      }
    }
  }
}

TEST(ExtCoordinates, EllipsoidsHaveTheirOfficialParameters) {
  EXPECT_NEAR(kWgs84.SemiMinorAxis(), 6356752.314245, 1e-6);     // NIMA TR8350.2
  EXPECT_NEAR(kCgcs2000.SemiMinorAxis(), 6356752.314140, 1e-6);  // GB 22021
  EXPECT_NEAR(kKrassowsky1940.SemiMinorAxis(), 6356863.019, 1e-3);
  EXPECT_NEAR(kIag1975.SemiMinorAxis(), 6356755.288, 1e-3);
}

}  // namespace
}  // namespace quarnfc::ext
