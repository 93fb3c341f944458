// SPDX-License-Identifier: MIT
// Datum shifts in space and in the plane.
#include <quarnfc/ext/datum_shift.h>

#include <gtest/gtest.h>

#include <cmath>

namespace quarnfc::ext {
namespace {

Helmert7 Shift(RotationConvention convention) {
  return {{12.5, -107.1, -62.3}, {0.5, 1.2, -0.9}, 2.3, convention};
}

void ExpectNear(const Cartesian& given, const Cartesian& expected, double tolerance) {
  EXPECT_NEAR(given.x, expected.x, tolerance);
  EXPECT_NEAR(given.y, expected.y, tolerance);
  EXPECT_NEAR(given.z, expected.z, tolerance);
}

const Cartesian kPoint{-2094000.0, 4966000.0, 3394000.0};

// Expected values: PROJ 9.1, "+proj=helmert" with the same parameters.
TEST(DatumShift, BothConventionsAgreeWithAnotherImplementation) {
  ExpectNear(Apply(Shift(RotationConvention::kCoordinateFrame), kPoint),
             {-2094033.730049520, 4965903.412287443, 3393921.285822413}, 1e-6);
  ExpectNear(Apply(Shift(RotationConvention::kPositionVector), kPoint),
             {-2093950.902350480, 4965905.231312558, 3393969.726577587}, 1e-6);
}

// Expected values: PROJ 9.1, a pipeline of "+proj=cart", "+proj=helmert" and "+proj=cart +inv".
TEST(DatumShift, GeographicPositionsAgreeWithAnotherImplementation) {
  const LonLatHeight there = ShiftDatum(kKrassowsky1940, {114.3, 30.6, 20.0},
                                        Shift(RotationConvention::kCoordinateFrame), kCgcs2000);
  EXPECT_NEAR(there.lon, 114.300735670402, 1e-11);
  EXPECT_NEAR(there.lat, 30.599744449052, 1e-11);
  EXPECT_NEAR(there.height, 23.111506357789, 1e-6);
}

TEST(DatumShift, TheConventionsDifferByTheSignsOfTheRotations) {
  Helmert7 turned = Shift(RotationConvention::kPositionVector);
  turned.rotation = {-turned.rotation.x, -turned.rotation.y, -turned.rotation.z};
  ExpectNear(Apply(turned, kPoint), Apply(Shift(RotationConvention::kCoordinateFrame), kPoint),
             0.0);
}

TEST(DatumShift, ThreeParametersMoveAlongTheAxes) {
  Helmert7 shift;
  shift.translation = {1.0, -2.0, 3.0};
  ExpectNear(Apply(shift, kPoint), {-2093999.0, 4965998.0, 3394003.0}, 0.0);
}

TEST(DatumShift, TheWayBackIsExact) {
  for (const RotationConvention convention :
       {RotationConvention::kPositionVector, RotationConvention::kCoordinateFrame}) {
    Helmert7 shift = Shift(convention);
    shift.rotation = {30.0, -20.0, 25.0};
    shift.scale_ppm = -80.0;
    ExpectNear(ApplyBack(shift, Apply(shift, kPoint)), kPoint, 2e-8);
    const LonLatHeight there = ShiftDatum(kKrassowsky1940, {114.3, 30.6, 20.0}, shift, kCgcs2000);
    const LonLatHeight back = ShiftDatumBack(kCgcs2000, there, shift, kKrassowsky1940);
    EXPECT_NEAR(back.lon, 114.3, 1e-12);
    EXPECT_NEAR(back.lat, 30.6, 1e-12);
    EXPECT_NEAR(back.height, 20.0, 1e-6);
  }
}

TEST(DatumShift, ASimilarityTurnsScalesAndMoves) {
  // A quarter turn counter-clockwise, doubled.
  const PlaneSimilarity similarity{100.0, 200.0, 0.0, 2.0};
  const EastNorth there = Apply(similarity, {3.0, 4.0});
  EXPECT_EQ(there.east, 92.0);
  EXPECT_EQ(there.north, 206.0);
  EXPECT_EQ(similarity.Scale(), 2.0);
  EXPECT_NEAR(similarity.Rotation(), 90.0, 1e-13);
  const EastNorth back = ApplyBack(similarity, there);
  EXPECT_EQ(back.east, 3.0);
  EXPECT_EQ(back.north, 4.0);
}

TEST(DatumShift, ASimilarityOfScaleZeroHasNoWayBack) {
  EXPECT_FALSE(std::isfinite(ApplyBack(PlaneSimilarity{0.0, 0.0, 0.0, 0.0}, {1.0, 1.0}).east));
}

}  // namespace
}  // namespace quarnfc::ext
