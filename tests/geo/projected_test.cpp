// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

#include "tests/geo/geo_support.h"

namespace geo_test {
namespace {

// Whether a projected system has this ellipsoid (bit for bit) and these four numbers.
testing::AssertionResult Has(const Pro& system, const Geo& geo, double meridian, double easting,
                             double northing, double scale) {
  const auto f = Fields(system);
  if (!SameBits(system.GetGeoSystem(), geo)) return testing::AssertionFailure() << "ellipsoid";
  if (f[16] == meridian && f[17] == easting && f[18] == northing && f[19] == scale) {
    return testing::AssertionSuccess();
  }
  return testing::AssertionFailure() << f[16] << ' ' << f[17] << ' ' << f[18] << ' ' << f[19];
}

TEST(ProjectedSystem, IsAPlainValueOf160Bytes) {
  EXPECT_EQ(sizeof(Pro), 160u);
  EXPECT_TRUE(std::is_standard_layout<Pro>::value);
  EXPECT_TRUE(std::is_trivially_copyable<Pro>::value);
  EXPECT_FALSE(std::is_polymorphic<Pro>::value);
  EXPECT_EQ(sizeof(Pro::EPCSType), 4u);
}

TEST(ProjectedSystem, FamiliesHaveTheirNumbers) {
  EXPECT_EQ(Pro::ePCSBeijing54, 1);
  EXPECT_EQ(Pro::ePCSXiAn80, 2);
  EXPECT_EQ(Pro::ePCSCGCS2000, 3);
  EXPECT_EQ(Pro::ePCSWGS84UTM, 4);
}

TEST(ProjectedSystem, FieldsStandInTheirOrderBehindTheGeographicSystem) {
  const Pro system(Geo::CGCS2000, 114.0, 38500000.0, -7.0, 0.5);
  EXPECT_TRUE(Has(system, Geo::CGCS2000, 114.0, 38500000.0, -7.0, 0.5));
  EXPECT_EQ(system.GetCentralMeridian(), 114.0);
  EXPECT_EQ(system.GetFalseEasting(), 38500000.0);
  EXPECT_EQ(system.GetFalseNorthing(), -7.0);
  EXPECT_EQ(system.GetScaleFactor(), 0.5);
}

TEST(ProjectedSystem, DefaultIsBeijing54AtMeridian120) {
  EXPECT_TRUE(Has(Pro(), Geo::Beijing54, 120.0, 500000.0, 0.0, 1.0));
}

TEST(ProjectedSystem, SetAndAssignmentTakeEveryField) {
  Pro system;
  system.set(Geo::XiAn80, 87.0, 1.0, 2.0, 3.0);
  EXPECT_TRUE(Has(system, Geo::XiAn80, 87.0, 1.0, 2.0, 3.0));
  Pro assigned;
  assigned = system;
  EXPECT_TRUE(SameBits(assigned, system));
}

TEST(ProjectedSystem, ComparisonHasATolerancePerField) {
  const Pro reference(Geo(1000.0, 300.0), 120.0, 500.0, 10.0, 1.0);
  const struct {
    Pro other;
    bool equal;
  } cases[] = {
      {reference, true},
      {Pro(Geo(1000.0009, 300.0), 120.0, 500.0, 10.0, 1.0), true},
      {Pro(Geo(1000.0011, 300.0), 120.0, 500.0, 10.0, 1.0), false},
      {Pro(Geo(1000.0, 300.0000002), 120.0, 500.0, 10.0, 1.0), false},
      {Pro(Geo(1000.0, 300.0), 120.0000009, 500.0, 10.0, 1.0), true},
      {Pro(Geo(1000.0, 300.0), 120.0000011, 500.0, 10.0, 1.0), false},
      {Pro(Geo(1000.0, 300.0), 120.0, 500.0009, 10.0, 1.0), true},
      {Pro(Geo(1000.0, 300.0), 120.0, 500.0011, 10.0, 1.0), false},
      {Pro(Geo(1000.0, 300.0), 120.0, 500.0, 10.0009, 1.0), true},
      {Pro(Geo(1000.0, 300.0), 120.0, 500.0, 9.9989, 1.0), false},
      {Pro(Geo(1000.0, 300.0), 120.0, 500.0, 10.0, 0.9991), true},
      {Pro(Geo(1000.0, 300.0), 120.0, 500.0, 10.0, 0.9989), false},
  };
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    EXPECT_EQ(reference == cases[i].other, cases[i].equal) << i;
    EXPECT_EQ(reference != cases[i].other, !cases[i].equal) << i;
  }
}

TEST(ProjectedSystem, ScaleFactorOfUtmEqualsOneInComparison) {
  const Pro utm(Geo::WGS84, 117.0, 500000.0, 0.0, 0.9996);
  const Pro unscaled(Geo::WGS84, 117.0, 500000.0, 0.0, 1.0);
  EXPECT_TRUE(utm == unscaled);
  EXPECT_TRUE(utm.IsUTM());
  EXPECT_FALSE(unscaled.IsUTM());
}

TEST(UtmCode, OnlyTheScaleFactorMakesASystemUtm) {
  EXPECT_TRUE(Pro(Geo::Beijing54, 1.0, 2.0, 3.0, 0.99969).IsUTM());
  EXPECT_TRUE(Pro(Geo::Beijing54, 1.0, 2.0, 3.0, 0.99951).IsUTM());
  EXPECT_FALSE(Pro(Geo::Beijing54, 1.0, 2.0, 3.0, 0.99971).IsUTM());
  EXPECT_FALSE(Pro(Geo::Beijing54, 1.0, 2.0, 3.0, 0.99949).IsUTM());
  EXPECT_FALSE(Pro().IsUTM());
}

TEST(UtmCode, EveryZoneIsSetAndReadBack) {
  for (int code = -60; code <= 60; ++code) {
    if (code == 0) continue;
    Pro system;
    ASSERT_TRUE(system.setByUTMCode(code)) << code;
    const double meridian = (code < 0 ? -code : code) * 6 - 183;
    EXPECT_TRUE(Has(system, Geo::WGS84, meridian, 500000.0, code < 0 ? 1e7 : 0.0, 0.9996)) << code;
    EXPECT_EQ(system.GetUTMCode(), code);
  }
}

TEST(UtmCode, CodesOutsideTheZonesLeaveTheSystemAlone) {
  for (const int code :
       {0, 61, -61, 100, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    Pro system;
    EXPECT_FALSE(system.setByUTMCode(code)) << code;
    EXPECT_TRUE(SameBits(system, Pro()));
  }
}

TEST(UtmCode, ReadingIsLenient) {
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  const struct {
    Pro system;
    int zone;
  } cases[] = {
      {Pro(Geo::Beijing54, 117.0, 500000.0, 0.0, 0.9996), 50},  // any ellipsoid
      {Pro(Geo::WGS84, 118.0, 500000.0, 0.0, 0.9996), 50},      // any meridian
      {Pro(Geo::WGS84, 122.9, 500000.0, 0.0, 0.9996), 50},
      {Pro(Geo::WGS84, 117.0, 500000.0009, 0.0009, 0.99965), 50},
      {Pro(Geo::WGS84, 117.0, 500000.0, 10000000.0009, 0.9996), -50},
      {Pro(Geo::WGS84, 117.0, 500000.0, 0.0, 1.0), 0},
      {Pro(Geo::WGS84, 117.0, 500000.0, 5.0, 0.9996), 0},
      {Pro(Geo::WGS84, 117.0, 400000.0, 0.0, 0.9996), 0},
      {Pro(Geo::WGS84, -183.0, 500000.0, 0.0, 0.9996), 0},
      {Pro(Geo::WGS84, -184.0, 500000.0, 0.0, 0.9996), 0},   // cut toward zero
      {Pro(Geo::WGS84, 201.0, 500000.0, 0.0, 0.9996), 64},   // no such zone, deliberately
      {Pro(Geo::WGS84, 117.0, 500000.0, kNan, 0.9996), 50},  // not off, and not southern
      {Pro(Geo::WGS84, 117.0, kNan, 10000000.0, 0.9996), -50},
      {Pro(Geo::WGS84, 1e300, 500000.0, 0.0, 0.9996), 0},  // no int
      {Pro(Geo::WGS84, kNan, 500000.0, 0.0, 0.9996), 0},
      {Pro(Geo::WGS84, 117.0, 500000.0, 0.0, kNan), 0},
  };
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    EXPECT_EQ(cases[i].system.GetUTMCode(), cases[i].zone) << i;
  }
}

struct CodeRange {
  int first;
  int last;
  const Geo* geo;
  int factor;
  int offset;  // the central meridian is factor * code - offset
  Pro::EPCSType type;
};

const CodeRange kGaussKrueger[] = {
    {2327, 2337, &Geo::XiAn80, 6, 13887, Pro::ePCSXiAn80},
    {2338, 2348, &Geo::XiAn80, 6, 13953, Pro::ePCSXiAn80},
    {2349, 2369, &Geo::XiAn80, 3, 6972, Pro::ePCSXiAn80},
    {2370, 2390, &Geo::XiAn80, 3, 7035, Pro::ePCSXiAn80},
    {2401, 2421, &Geo::Beijing54, 3, 7128, Pro::ePCSBeijing54},
    {2422, 2442, &Geo::CGCS2000, 3, 7191, Pro::ePCSBeijing54},
    {4513, 4533, &Geo::CGCS2000, 3, 13464, Pro::ePCSCGCS2000},
    {4534, 4554, &Geo::CGCS2000, 3, 13527, Pro::ePCSCGCS2000},
};

TEST(EpsgCode, GaussKruegerCodesGiveTheirZone) {
  for (const CodeRange& range : kGaussKrueger) {
    for (int code = range.first; code <= range.last; ++code) {
      Pro system(Geo(1, 2), 3, 4, 5, 6);
      auto type = static_cast<Pro::EPCSType>(0);
      ASSERT_TRUE(system.setByEPSGCode(code, type)) << code;
      EXPECT_EQ(type, range.type) << code;
      EXPECT_TRUE(Has(system, *range.geo, range.factor * code - range.offset, 500000.0, 0.0, 1.0))
          << code;
    }
    EXPECT_EQ(range.factor * range.first - range.offset, 75);
    EXPECT_EQ(range.factor * range.last - range.offset, 135);
  }
}

TEST(EpsgCode, UtmCodesGiveTheirZone) {
  for (int zone = 1; zone <= 60; ++zone) {
    for (const int code : {32600 + zone, 32500 + zone}) {
      Pro system;
      auto type = static_cast<Pro::EPCSType>(0);
      ASSERT_TRUE(system.setByEPSGCode(code, type)) << code;
      EXPECT_EQ(type, Pro::ePCSWGS84UTM);
      EXPECT_EQ(system.GetUTMCode(), code > 32600 ? zone : -zone);
      EXPECT_TRUE(SameBits(system.GetGeoSystem(), Geo::WGS84));
    }
  }
}

// Every other number of the range of codes is refused, the official southern zones included.
TEST(EpsgCode, OtherCodesChangeNothing) {
  int accepted = 0;
  for (int code = -1000; code <= 40000; ++code) {
    Pro system;
    auto type = static_cast<Pro::EPCSType>(77);
    if (system.setByEPSGCode(code, type)) {
      ++accepted;
    } else {
      ASSERT_TRUE(SameBits(system, Pro())) << code;
      ASSERT_EQ(static_cast<int>(type), 77) << code;
    }
  }
  EXPECT_EQ(accepted, 11 + 11 + 21 + 21 + 21 + 21 + 21 + 21 + 60 + 60);
  for (const int code :
       {2326, 2391, 2400, 2443, 4512, 4555, 32500, 32561, 32600, 32661, 32700, 32750, 3857, 4326,
        std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    Pro system;
    auto type = static_cast<Pro::EPCSType>(77);
    EXPECT_FALSE(system.setByEPSGCode(code, type)) << code;
  }
}

}  // namespace
}  // namespace geo_test
