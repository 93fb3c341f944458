// SPDX-License-Identifier: MIT
// Plane systems that show true lengths at the height of the ground.
#include <quarnfc/ext/height_plane.h>
#include <quarnfc/ext/transverse_mercator.h>

#include <gtest/gtest.h>

#include <cmath>

namespace quarnfc::ext {
namespace {

TEST(HeightPlane, MeanRadiusIsThatOfTheEllipsoidsCurvature) {
  EXPECT_NEAR(MeanRadius(kWgs84, 0.0), 6356752.314, 1e-3);
  EXPECT_NEAR(MeanRadius(kWgs84, 45.0), 6378101.030, 1e-3);  // a sqrt(1 - e^2) / (1 - e^2/2)
  EXPECT_NEAR(MeanRadius(kWgs84, 90.0), 6399593.626, 1e-3);  // a^2 / b
}

TEST(HeightPlane, TheCompensatedPlaneShowsTrueLengths) {
  const double radius = MeanRadius(kCgcs2000, 25.0);
  const TransverseMercator zone(kCgcs2000, {102.0, 0.0, 500000.0, 0.0, 1.0});
  const LonLat town = zone.Inverse({540000.0, zone.Forward({102.4, 25.0}).north});
  const double ground = 1900.0;
  const double plane = CompensationHeight(ground, 40000.0, radius);
  EXPECT_NEAR(plane, 1774.4, 0.5);
  // On the raised plane the length is that at the ground above it.
  const double scale = zone.ScaleAt(town).factor;
  EXPECT_NEAR(Deformation(scale, ground - plane, radius), 0.0, 0.1);
  EXPECT_NEAR(CompensatedOffset(ground, plane, radius), 40000.0, 1e-6);
  EXPECT_NEAR(Deformation(1.0, 1000.0, radius), -1e9 / (radius + 1000.0), 1e-6);
}

TEST(HeightPlane, NoOffsetCompensatesAPlaneAboveTheGround) {
  EXPECT_TRUE(std::isnan(CompensatedOffset(100.0, 101.0, 6371000.0)));
}

TEST(HeightPlane, TheRaisedEllipsoidKeepsItsFlatteningAndGrowsByTheHeight) {
  const Ellipsoid raised = RaisedEllipsoid(kCgcs2000, 1774.0, 25.0);
  EXPECT_EQ(raised.inverse_flattening, kCgcs2000.inverse_flattening);
  const Cartesian on_raised = ToCartesian(raised, {102.4, 25.0}, 0.0);
  const Cartesian at_height = ToCartesian(kCgcs2000, {102.4, 25.0}, 1774.0);
  EXPECT_NEAR(std::hypot(on_raised.x, on_raised.y), std::hypot(at_height.x, at_height.y), 1e-8);
}

}  // namespace
}  // namespace quarnfc::ext
