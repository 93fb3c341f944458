// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <type_traits>

#include "tests/geo/geo_support.h"

namespace geo_test {
namespace {

// Copied by a static initialiser of this program, which runs before main.
const Geo copied_before_main = Geo::WGS84;
const Pro made_before_main(Geo::CGCS2000, 114.0, 500000.0, 0.0, 1.0);
const Geo default_before_main;

TEST(GeographicSystem, IsAPlainValueOf128Bytes) {
  EXPECT_EQ(sizeof(Geo), 128u);
  EXPECT_TRUE(std::is_standard_layout<Geo>::value);
  EXPECT_TRUE(std::is_trivially_copyable<Geo>::value);
  EXPECT_FALSE(std::is_polymorphic<Geo>::value);
}

TEST(GeographicSystem, PredefinedSystemsExistBeforeStaticInitialisersOfTheHost) {
  EXPECT_TRUE(SameBits(copied_before_main, Geo::WGS84));
  EXPECT_TRUE(SameBits(default_before_main, Geo::Beijing54));
  EXPECT_TRUE(SameBits(made_before_main.GetGeoSystem(), Geo::CGCS2000));
  EXPECT_EQ(Fields(copied_before_main)[0], 6378137.0);
}

// Computed in double precision by a separate program from the definitions of the fields.
TEST(GeographicSystem, SixteenFieldsStandInTheirOrder) {
  const struct {
    const char* name;
    const Geo* system;
    std::array<double, 16> fields;
  } cases[] = {
      {"Beijing54",
       &Geo::Beijing54,
       {6378245, 6356863.0187730473, 298.30000000000001, 0.081813334016931083, 0.082088521820551916,
        40682009280025, 40409707439444.383, 0.0016789791806581683, 6367558.4970123041,
        0.0025184647775237596, 3.6998858962068764e-06, 7.4446047831951984e-09, 0.99832453864853166,
        0.0025142464643137536, 2.6382891499464438e-06, 3.4165783147131286e-09}},
      {"XiAn80",
       &Geo::XiAn80,
       {6378140, 6356755.2881575283, 298.25700000000001, 0.081819221455523311, 0.082094468872591628,
        40680669859600, 40408337793518.703, 0.0016792216471821057, 6367452.1329258364,
        0.0025188284755792911, 3.7009545931223198e-06, 7.4478305435009814e-09, 0.99832429719727644,
        0.0025146089453786363, 2.6390505538350321e-06, 3.4180537598376815e-09}},
      {"WGS84",
       &Geo::WGS84,
       {6378137, 6356752.2982159676, 298.25700000000001, 0.081819221455524671, 0.082094468872594334,
        40680631590769, 40408299780873.984, 0.0016792216471821614, 6367449.1379529452,
        0.0025188284755793744, 3.700954593122565e-06, 7.4478305435017225e-09, 0.99832429719727644,
        0.00251460894537872, 2.6390505538352079e-06, 3.4180537598380219e-09}},
      {"CGCS2000",
       &Geo::CGCS2000,
       {6378137, 6356752.3141403561, 298.25722210100002, 0.08181919104281582, 0.082094438151917609,
        40680631590769, 40408299983328.773, 0.0016792203946287435, 6367449.1459084488,
        0.0025188265967581876, 3.7009490719640127e-06, 7.4478138772111321e-09, 0.99832429844458481,
        0.0025146070728448212, 2.6390466202309022e-06, 3.4180461367752206e-09}},
  };
  for (const auto& c : cases) {
    const std::array<double, 16> fields = Fields(*c.system);
    for (std::size_t i = 0; i < fields.size(); ++i) {
      EXPECT_DOUBLE_EQ(fields[i], c.fields[i]) << c.name << " field " << i + 1;
    }
  }
}

TEST(GeographicSystem, AccessorsReadTheFieldsInTheirOrder) {
  const Geo& s = Geo::CGCS2000;
  const std::array<double, 16> by_accessor = {
      s.GetSemiMajorAxis(),         s.GetSemiMinorAxis(),         s.GetInverseFlattening(),
      s.GetFirstEccentricity(),     s.GetSecondEccentricity(),    s.GetSemiMajorAxisSquared(),
      s.GetSemiMinorAxisSquared(),  s.GetThirdFlattening(),       s.GetRectifyingRadius(),
      s.GetFootpointCoefficient2(), s.GetFootpointCoefficient4(), s.GetFootpointCoefficient6(),
      s.GetArcCoefficient0(),       s.GetArcCoefficient2(),       s.GetArcCoefficient4(),
      s.GetArcCoefficient6(),
  };
  EXPECT_EQ(by_accessor, Fields(s));
}

TEST(GeographicSystem, DerivedFieldsAreConsistentForAnyEllipsoid) {
  for (const double inverse_flattening : {150.0, 293.465, 299.3249646, 500.0}) {
    const auto f = Fields(Geo(6377563.396, inverse_flattening));
    EXPECT_DOUBLE_EQ(f[1], f[0] * (1.0 - 1.0 / inverse_flattening));
    EXPECT_NEAR(f[3] * f[3], 1.0 - f[6] / f[5], 1e-15);
    EXPECT_NEAR(f[4] * f[4], f[5] / f[6] - 1.0, 1e-15);
    EXPECT_NEAR(f[7], (f[0] - f[1]) / (f[0] + f[1]), 1e-15);
    EXPECT_DOUBLE_EQ(f[8], f[0] * f[12]);
  }
}

TEST(GeographicSystem, DefaultIsBeijing54) {
  EXPECT_TRUE(SameBits(Geo(), Geo::Beijing54));
  EXPECT_TRUE(Geo() == Geo::Beijing54);
}

TEST(GeographicSystem, Wgs84HasTheShortenedInverseFlattening) {
  EXPECT_EQ(Fields(Geo::WGS84)[2], 298.257);
  EXPECT_EQ(Fields(Geo::WGS84)[2], Fields(Geo::XiAn80)[2]);
  EXPECT_TRUE(Geo::WGS84 != Geo(6378137.0, 298.257223563));
}

TEST(GeographicSystem, PredefinedSystemsDifferFromEachOther) {
  const Geo* const systems[] = {&Geo::Beijing54, &Geo::XiAn80, &Geo::WGS84, &Geo::CGCS2000};
  for (const Geo* left : systems) {
    for (const Geo* right : systems) {
      EXPECT_EQ(*left == *right, left == right);
      EXPECT_EQ(*left != *right, left != right);
    }
  }
}

TEST(GeographicSystem, ComparisonToleratesLessThanAMillimetreAndATenMillionth) {
  const struct {
    double axis;
    double inverse_flattening;
    bool equal;
  } cases[] = {
      {1000.0, 300.0, true},         {1000.0009, 300.0, true},        {1000.0011, 300.0, false},
      {999.9989, 300.0, false},      {1000.0, 300.00000009, true},    {1000.0, 300.00000011, false},
      {1000.0, 299.99999989, false}, {1000.0009, 300.00000009, true},
  };
  const Geo reference(1000.0, 300.0);
  for (const auto& c : cases) {
    const Geo other(c.axis, c.inverse_flattening);
    EXPECT_EQ(reference == other, c.equal) << c.axis << ' ' << c.inverse_flattening;
    EXPECT_EQ(other == reference, c.equal) << c.axis << ' ' << c.inverse_flattening;
    EXPECT_EQ(reference != other, !c.equal) << c.axis << ' ' << c.inverse_flattening;
  }
}

TEST(GeographicSystem, ADifferenceOfExactlyTheToleranceIsADifference) {
  EXPECT_FALSE(Geo(0.001, 300.0) == Geo(0.0, 300.0));
  EXPECT_FALSE(Geo(1.0, 1e-7) == Geo(1.0, 0.0));
}

TEST(GeographicSystem, NotANumberEqualsNothing) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const Geo system(nan, 300.0);
  EXPECT_FALSE(system == system);
  EXPECT_TRUE(system != system);
}

TEST(GeographicSystem, DegenerateEllipsoidsGiveInfinitiesAndNotANumber) {
  EXPECT_TRUE(std::isinf(Fields(Geo(6378137.0, 0.0))[1]));
  EXPECT_TRUE(std::isnan(Fields(Geo(0.0, 298.0))[3]));
  const double infinity = std::numeric_limits<double>::infinity();
  const auto sphere = Fields(Geo(6371000.0, infinity));
  EXPECT_EQ(sphere[1], 6371000.0);
  EXPECT_EQ(sphere[3], 0.0);
  EXPECT_EQ(sphere[12], 1.0);
}

TEST(GeographicSystem, SetReplacesEveryField) {
  Geo system(1.0, 2.0);
  system.set(6378140.0, 298.257);
  EXPECT_TRUE(SameBits(system, Geo::XiAn80));
}

TEST(GeographicSystem, AssignmentAndCopyTakeEveryField) {
  Geo assigned;
  assigned = Geo::CGCS2000;
  const Geo copied(assigned);
  EXPECT_TRUE(SameBits(assigned, Geo::CGCS2000));
  EXPECT_TRUE(SameBits(copied, Geo::CGCS2000));
}

}  // namespace
}  // namespace geo_test
