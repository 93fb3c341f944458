// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "geo/messages.h"
#include "tests/geo/geo_support.h"

namespace geo_test {
namespace {

namespace messages = quarnfc::geo::messages;

TEST(GeographicWkt, PredefinedSystemsAreWrittenWithTheirNames) {
  const struct {
    const Geo* system;
    const char* text;
  } cases[] = {
      {&Geo::Beijing54,
       "GEOGCS[\"Beijing 1954\",\n"
       "DATUM[\"Beijing_1954\",SPHEROID[\"Krassowsky 1940\",6378245,298.3]],\n"
       "PRIMEM[\"Greenwich\",0],\n"
       "UNIT[\"degree\",0.01745329251994328]]"},
      {&Geo::XiAn80,
       "GEOGCS[\"Xian 1980\",\n"
       "DATUM[\"Xian_1980\",SPHEROID[\"Xian 1980\",6378140,298.257]],\n"
       "PRIMEM[\"Greenwich\",0],\n"
       "UNIT[\"degree\",0.01745329251994328]]"},
      {&Geo::CGCS2000,
       "GEOGCS[\"China Geodetic Coordinate System 2000\",\n"
       "DATUM[\"China_2000\",SPHEROID[\"CGCS2000\",6378137,298.257222101]],\n"
       "PRIMEM[\"Greenwich\",0],\n"
       "UNIT[\"degree\",0.0174532925199433]]"},
      {&Geo::WGS84,
       "GEOGCS[\"WGS 84\",\n"
       "DATUM[\"WGS_1984\",SPHEROID[\"WGS 84\",6378137,298.257]],\n"
       "PRIMEM[\"Greenwich\",0],\n"
       "UNIT[\"degree\",0.0174532925199433]]"},
  };
  for (const auto& c : cases) EXPECT_EQ(WktOf(*c.system), c.text);
}

TEST(GeographicWkt, FullWgs84IsWrittenAsUnknown) {
  EXPECT_EQ(WktOf(Geo(6378137, 298.257223563)),
            "GEOGCS[\"Unknown\",\n"
            "DATUM[\"Unknown\",SPHEROID[\"Unknown\",6378137,298.257223563]],\n"
            "PRIMEM[\"Greenwich\",0],\n"
            "UNIT[\"degree\",0.0174532925199433]]");
}

TEST(GeographicWkt, AlmostEqualSystemKeepsItsNumbersUnderThePredefinedName) {
  EXPECT_NE(
      WktOf(Geo(6378137.0004, 298.25700004)).find("SPHEROID[\"WGS 84\",6378137.0004,298.25700004]"),
      std::string::npos);
}

TEST(GeographicWkt, NumbersLoseTrailingZerosAndThenThePoint) {
  const struct {
    double axis;
    double inverse_flattening;
    const char* numbers;
  } cases[] = {
      {6377563.396, 299.3249646, "6377563.396,299.3249646"},
      {6377563.3960004, 293.4650000004, "6377563.396,293.465"},
      {1000000.0, 300.0, "1000000,300"},
      {0.0, 0.0, "0,0"},
      {-5.5, -0.0, "-5.5,-0"},
      {0.0000004, 1e-10, "0,0"},
      {0.1, 10.0, "0.1,10"},
  };
  for (const auto& c : cases) {
    EXPECT_NE(WktOf(Geo(c.axis, c.inverse_flattening)).find(std::string(c.numbers) + "]]"),
              std::string::npos)
        << c.numbers;
  }
}

TEST(GeographicWkt, TextIsCutAt511Bytes) {
  const double largest = std::numeric_limits<double>::max();
  EXPECT_EQ(WktOf(Geo(largest, largest)).size(), 511u);
  EXPECT_EQ(WktOf(Geo(largest, 1.0)).find("GEOGCS[\"Unknown\",\nDATUM[\"Unknown\","), 0u);
}

TEST(GeographicWkt, NonFiniteNumbersAreWrittenAsFormatWritesThem) {
  const double infinity = std::numeric_limits<double>::infinity();
  CQNString expected;
  expected.Format("%f", infinity);
  expected.TrimRight('0');
  const std::string number = static_cast<const char*>(expected);
  EXPECT_NE(WktOf(Geo(infinity, infinity)).find("," + number + "," + number + "]"),
            std::string::npos);
}

TEST(GeographicWkt, WrittenTextReadsBack) {
  for (const Geo* system : {&Geo::Beijing54, &Geo::XiAn80, &Geo::CGCS2000, &Geo::WGS84}) {
    Geo by_ansi(1.0, 2.0);
    Geo by_wide(1.0, 2.0);
    EXPECT_EQ(ReadWkt(by_ansi, WktOf(*system).c_str()), "accepted");
    EXPECT_EQ(ReadWideWkt(by_wide, WktOf(*system).c_str()), "accepted");
    EXPECT_TRUE(SameBits(by_ansi, *system));
    EXPECT_TRUE(SameBits(by_wide, *system));
  }
}

TEST(GeographicWkt, OnlyTheSpheroidIsRead) {
  Geo system;
  EXPECT_EQ(ReadWkt(system,
                    "geogcs[Datum[1,SPHEROID[BARE,6371000,300,AUTHORITY[\"EPSG\",\"7035\"]]],"
                    "UNIT[\"grad\",0.015]]"),
            "accepted");
  EXPECT_TRUE(SameBits(system, Geo(6371000, 300)));
}

TEST(GeographicWkt, ProjectedTextIsAcceptedForItsSpheroid) {
  Geo system;
  EXPECT_EQ(
      ReadWkt(system, "PROJCS[\"p\",GEOGCS[\"g\",DATUM[\"d\",SPHEROID[\"s\",6378137,298.257]]]]"),
      "accepted");
  EXPECT_TRUE(SameBits(system, Geo::WGS84));
}

TEST(GeographicWkt, FirstSpheroidDecides) {
  Geo system;
  EXPECT_EQ(ReadWkt(system, "GEOGCS[DATUM[SPHEROID[\"s\",1,2]],DATUM[SPHEROID[\"t\",3,4]]]"),
            "accepted");
  EXPECT_TRUE(SameBits(system, Geo(1, 2)));
}

TEST(GeographicWkt, RefusedTextsGiveTheirMessageAndLeaveTheSystemAlone) {
  const struct {
    const char* text;
    std::string message;
  } cases[] = {
      {nullptr, messages::kNullText},
      {"", messages::kNoKey},
      {"GEOGCS", messages::kNoKey},
      {"GEOGCS(\"x\")", messages::kNoKey},
      {"GEOGCS[\"WGS 84\"", Formatted(messages::kNoEndMark, "WGS 84")},
      {"GEOGCS[\"x\"]", messages::kBracketsDoNotMatch},
      {"GEOGCS[]", messages::kNoSpheroid},
      {"GEOGCS[DATUM[\"d\"]]", messages::kNoSpheroid},
      {"GEOGCS[SPHEROID[\"x\",6378137,298.257]]", messages::kNoSpheroid},
      {"GEOGCS[DATUM[SPHEROID[6378137,298.257]]]", messages::kNoSpheroid},
      {"GEOGCS[DATUM[SPHEROID[\"x\",\"6378137\",298.257]]]", messages::kNoSpheroid},
      {"GEOGCS[DATUM[SPHEROID[\"x\",6378137,\"298.257\"]]]", messages::kNoSpheroid},
      {"GEOGCS[DATUM[SPHEROID[\"x\",6.378137e6,298.257]]]", messages::kNoSpheroid},
      {"GEOGCS[DATUM[SPHEROID[\"x\",6378137,NODE[]]]]", messages::kNoSpheroid},
      {"GEOGCS[DATUM[SPHEROID[\"x\"],SPHEROID[\"y\",1,2]]]", messages::kNoSpheroid},
      {"VERTCS[DATUM[SPHEROID[\"x\",1,2]]]", messages::kNoSpheroid},
      {"GEOGCS[DATUM[SPHEROID[\"x\",1,2]]] more", messages::kBracketsDoNotMatch},
  };
  for (const auto& c : cases) {
    Geo system(1000.0, 300.0);
    EXPECT_EQ(ReadWkt(system, c.text), c.message) << c.text;
    if (c.text != nullptr) {
      EXPECT_EQ(ReadWideWkt(system, c.text), c.message) << c.text;
    }
    EXPECT_TRUE(SameBits(system, Geo(1000.0, 300.0)));
  }
}

TEST(GeographicWkt, NullWideTextGivesItsMessage) {
  Geo system;
  wchar_t* message = nullptr;
  EXPECT_FALSE(system.SetFromWKTW(nullptr, &message));
  const WideText owned(message);
  EXPECT_EQ(ToAnsi(message), messages::kNullText);
}

TEST(GeographicWkt, MessageIsNotWantedWithANullArgument) {
  Geo system;
  EXPECT_FALSE(system.SetFromWKTA("GEOGCS[", nullptr));
  EXPECT_FALSE(system.SetFromWKTW(ToWide("GEOGCS[").data(), nullptr));
  EXPECT_FALSE(system.SetFromWKTA(nullptr, nullptr));
  EXPECT_FALSE(system.SetFromWKTW(nullptr, nullptr));
  EXPECT_TRUE(system.SetFromWKTA(WktOf(Geo::WGS84).c_str(), nullptr));
}

TEST(GeographicWkt, MessageIsLeftAloneOnSuccess) {
  Geo system;
  char ansi[] = "before";
  char* ansi_message = ansi;
  EXPECT_TRUE(system.SetFromWKTA(WktOf(Geo::WGS84).c_str(), &ansi_message));
  EXPECT_EQ(ansi_message, ansi);
  wchar_t wide[] = L"before";
  wchar_t* wide_message = wide;
  EXPECT_TRUE(system.SetFromWKTW(ToWide(WktOf(Geo::WGS84).c_str()).data(), &wide_message));
  EXPECT_EQ(static_cast<const void*>(wide_message), wide);
}

TEST(GeographicWkt, ChineseNamesSurviveInMessages) {
  // 测绘 (surveying) in code page 936.
  const std::string name = "\xB2\xE2\xBB\xE6";
  Geo system;
  EXPECT_EQ(ReadWkt(system, ("GEOGCS[\"" + name + "\"").c_str()),
            Formatted(messages::kNoEndMark, name));
}

}  // namespace
}  // namespace geo_test
