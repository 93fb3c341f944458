// SPDX-License-Identifier: MIT
// Angles as degrees, minutes and seconds.
#include <quarnfc/ext/sexagesimal.h>

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

namespace {

using quarnfc::ext::FromPackedAngle;
using quarnfc::ext::ReadAngle;
using quarnfc::ext::ToPackedAngle;
using quarnfc::ext::WriteAngle;

constexpr double kAngle = 114.0 + 3.0 / 60.0 + 27.5 / 3600.0;

TEST(Sexagesimal, EveryUsualSpellingIsRead) {
  struct Case {
    const char* text;
    double angle;
  };
  const Case cases[] = {
      {"114d03'27.5\"", kAngle},
      {"114d03'27.5\"E", kAngle},
      {"114D3'27.5''W", -kAngle},
      {"114\xC2\xB0"
       "3\xE2\x80\xB2"
       "27.5\xE2\x80\xB3",
       kAngle},  // UTF-8
      {"114\xA1\xE3"
       "3\xA1\xE4"
       "27.5\xA1\xE5"
       "E",
       kAngle},                                                // code page 936
      {"114\xC2\xB0 3\xE2\x80\x99 27.5\xE2\x80\x9D", kAngle},  // typographic quotes
      {"E 114 3 27.5", kAngle},
      {"  W114 03 27.5  ", -kAngle},
      {"-114:03:27.5", -kAngle},
      {"\xE2\x88\x92"
       "114:03:27.5",
       -kAngle},  // the minus sign of typography
      {"+114 03 27.5", kAngle},
      {"114d3.5'", 114.0 + 3.5 / 60.0},
      {"114.0576388", 114.0576388},
      {"114.5d", 114.5},
      {"30n", 30.0},
      {"30 35 34 s", -(30.0 + 35.0 / 60.0 + 34.0 / 3600.0)},
      {"0", 0.0},
      {"007", 7.0},
      {"0.1234567890123456789", 0.1234567890123456789},
  };
  for (const Case& c : cases) {
    double angle = -1.0;
    EXPECT_TRUE(ReadAngle(c.text, angle)) << c.text;
    EXPECT_NEAR(angle, c.angle, 1e-13) << c.text;
  }
}

TEST(Sexagesimal, WhatIsNoAngleIsRefusedAndChangesNothing) {
  for (const char* text : {"",
                           " ",
                           "d",
                           "N",
                           "E W",
                           "114d60'",
                           "114d03'60\"",
                           "114.5d3'",
                           "114d3.5'2\"",
                           "-114N",
                           "N114E",
                           "114 3 27.5 8",
                           "114d03'27.5\"x",
                           ".5",
                           "1.2.3",
                           "1e2",
                           "nan",
                           "inf",
                           "0x10",
                           "--1",
                           "114,5",
                           "114d-3'",
                           "123456789012345678901234567890",
                           "114d3m27.5s"}) {
    double angle = 77.0;
    EXPECT_FALSE(ReadAngle(text, angle)) << text;
    EXPECT_EQ(angle, 77.0) << text;
  }
}

TEST(Sexagesimal, AnglesAreWrittenWithTwoDigitsAndCarries) {
  struct Case {
    double angle;
    int decimals;
    const char* text;
  };
  const Case cases[] = {
      {kAngle, 1, "114d03'27.5\""},     {kAngle, 0, "114d03'28\""},
      {-kAngle, 3, "-114d03'27.500\""}, {29.9999999999, 2, "30d00'00.00\""},
      {29.99999, 2, "29d59'59.96\""},   {0.0, 0, "0d00'00\""},
      {-1e-9, 2, "0d00'00.00\""},       {359.999861, 1, "359d59'59.5\""},
      {1.0, 12, "1d00'00.000000000\""}, {1.0, -1, "1d00'00\""},
  };
  for (const Case& c : cases) EXPECT_EQ(WriteAngle(c.angle, c.decimals), c.text);
  EXPECT_EQ(WriteAngle(kAngle, 1, "\xC2\xB0"),
            "114\xC2\xB0"
            "03'27.5\"");
  EXPECT_EQ(WriteAngle(std::nan(""), 2), "");
  EXPECT_EQ(WriteAngle(1e300, 2), "");
}

TEST(Sexagesimal, AnglesReachAMillionDegreesAndNoFurther) {
  const double above = std::nextafter(1e6, 2e6);
  for (const double sign : {1.0, -1.0}) {
    double angle = 77.0;
    for (const double magnitude : {std::nextafter(1e6, 0), 1e6}) {
      EXPECT_EQ(WriteAngle(sign * magnitude, 0), sign < 0 ? "-1000000d00'00\"" : "1000000d00'00\"");
      EXPECT_NEAR(ToPackedAngle(sign * magnitude), sign * 1e6, 1e-6);
    }
    EXPECT_TRUE(FromPackedAngle(sign * 1e6, angle));
    EXPECT_EQ(angle, sign * 1e6);
    EXPECT_EQ(WriteAngle(sign * above, 0), "");
    EXPECT_TRUE(std::isnan(ToPackedAngle(sign * above)));
    EXPECT_FALSE(FromPackedAngle(sign * above, angle));
  }
}

TEST(Sexagesimal, DecimalsAreThoseFromZeroToNine) {
  const std::pair<int, const char*> cases[] = {
      {-1, "1d30'00\""},         {0, "1d30'00\""},           {1, "1d30'00.0\""},
      {8, "1d30'00.00000000\""}, {9, "1d30'00.000000000\""}, {10, "1d30'00.000000000\""}};
  for (const auto& [decimals, text] : cases) EXPECT_EQ(WriteAngle(1.5, decimals), text);
}

TEST(Sexagesimal, WhatIsWrittenReadsBack) {
  for (double angle = -181.0; angle < 181.0; angle += 0.7310123) {
    double back = 0;
    ASSERT_TRUE(ReadAngle(WriteAngle(angle, 9), back));
    EXPECT_NEAR(back, angle, 1e-12);
    ASSERT_TRUE(FromPackedAngle(ToPackedAngle(angle), back));
    EXPECT_NEAR(back, angle, 2e-9);
  }
}

TEST(Sexagesimal, PackedAnglesAreReadByTheirDecimalDigits) {
  double angle = 0;
  ASSERT_TRUE(FromPackedAngle(114.03275, angle));
  EXPECT_NEAR(angle, kAngle, 1e-13);
  ASSERT_TRUE(FromPackedAngle(-0.3, angle));  // 30 minutes, although 0.3 is a little less
  EXPECT_NEAR(angle, -0.5, 1e-13);
  ASSERT_TRUE(FromPackedAngle(12.4, angle));
  EXPECT_NEAR(angle, 12.0 + 40.0 / 60.0, 1e-13);
  EXPECT_NEAR(ToPackedAngle(kAngle), 114.03275, 1e-12);
  for (const double none : {12.60, 12.0060, 12.9999, std::nan(""), HUGE_VAL}) {
    angle = 77.0;
    EXPECT_FALSE(FromPackedAngle(none, angle)) << none;
    EXPECT_EQ(angle, 77.0);
  }
  EXPECT_TRUE(std::isnan(ToPackedAngle(HUGE_VAL)));
}

}  // namespace
