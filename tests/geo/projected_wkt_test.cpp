// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "geo/messages.h"
#include "tests/geo/geo_support.h"

namespace geo_test {
namespace {

namespace messages = quarnfc::geo::messages;

constexpr char kGeographic[] = "GEOGCS[\"g\",DATUM[\"d\",SPHEROID[\"s\",6378137,298.257]]]";

// A PROJCS text around the given nodes.
std::string Projected(const std::string& nodes) {
  return std::string("PROJCS[\"p\",") + kGeographic + nodes + "]";
}

const std::string kProjection = ",PROJECTION[\"Transverse_Mercator\"]";
const std::string kMeridian = ",PARAMETER[\"central_meridian\",114]";
const std::string kEasting = ",PARAMETER[\"false_easting\",38500000]";
const std::string kNorthing = ",PARAMETER[\"false_northing\",-10.5]";
const std::string kScale = ",PARAMETER[\"scale_factor\",0.9996]";

TEST(ProjectedWkt, DefaultSystemIsWrittenInFull) {
  EXPECT_EQ(WktOf(Pro()),
            "PROJCS[\"Beijing 1954 / 3-degree Gauss-Kruger CM 120E\",\n"
            "GEOGCS[\"Beijing 1954\",\n"
            "DATUM[\"Beijing_1954\",SPHEROID[\"Krassowsky 1940\",6378245,298.3]],\n"
            "PRIMEM[\"Greenwich\",0],\n"
            "UNIT[\"degree\",0.01745329251994328]],\n"
            "UNIT[\"metre\",1],\n"
            "PROJECTION[\"Transverse_Mercator\"],\n"
            "PARAMETER[\"latitude_of_origin\",0],\n"
            "PARAMETER[\"central_meridian\",120],\n"
            "PARAMETER[\"scale_factor\",1],\n"
            "PARAMETER[\"false_easting\",500000],\n"
            "PARAMETER[\"false_northing\",0],\n"
            "AXIS[\"Y\",EAST],\n"
            "AXIS[\"X\",NORTH]]");
}

TEST(ProjectedWkt, NameFollowsTheEllipsoidAndTheMeridian) {
  const struct {
    Geo geo;
    double meridian;
    const char* name;
    const char* parameter;
  } cases[] = {
      {Geo::XiAn80, 87.0, "Xian 1980 / 3-degree Gauss-Kruger CM 87E", "87"},
      {Geo::CGCS2000, 114.0, "CGCS2000 / 3-degree Gauss-Kruger CM 114E", "114"},
      {Geo::WGS84, -75.0, "WGS 84 / 3-degree Gauss-Kruger CM 75W", "-75"},
      {Geo(6378137, 298.257223563), 0.0, "Unknown / 3-degree Gauss-Kruger CM 0E", "0"},
      {Geo::WGS84, -0.5, "WGS 84 / 3-degree Gauss-Kruger CM 0.5W", "-0.5"},
      {Geo::WGS84, 116.3333333, "WGS 84 / 3-degree Gauss-Kruger CM 116.333333E", "116.333333"},
  };
  for (const auto& c : cases) {
    const std::string text = WktOf(Pro(c.geo, c.meridian, 500000.0, 0.0, 1.0));
    EXPECT_EQ(text.find("PROJCS[\"" + std::string(c.name) + "\",\n"), 0u) << text;
    EXPECT_NE(text.find("PARAMETER[\"central_meridian\"," + std::string(c.parameter) + "],\n"),
              std::string::npos)
        << text;
  }
}

TEST(ProjectedWkt, UtmIsNamedThreeDegreeToo) {
  Pro system;
  system.setByUTMCode(-50);
  const std::string text = WktOf(system);
  EXPECT_EQ(text.find("PROJCS[\"WGS 84 / 3-degree Gauss-Kruger CM 117E\",\n"), 0u);
  EXPECT_NE(text.find("PARAMETER[\"scale_factor\",0.9996],\n"
                      "PARAMETER[\"false_easting\",500000],\n"
                      "PARAMETER[\"false_northing\",10000000],\n"),
            std::string::npos);
}

TEST(ProjectedWkt, TextIsCutAt1023Bytes) {
  const double largest = std::numeric_limits<double>::max();
  EXPECT_EQ(WktOf(Pro(Geo(largest, largest), largest, largest, largest, largest)).size(), 1023u);
}

TEST(ProjectedWkt, WrittenTextReadsBack) {
  for (const int code : {2327, 2442, 2414, 4547, 32650, 32550}) {
    Pro system;
    auto type = static_cast<Pro::EPCSType>(0);
    ASSERT_TRUE(system.setByEPSGCode(code, type));
    const std::string text = WktOf(system);
    Pro by_ansi;
    Pro by_wide;
    EXPECT_EQ(ReadWkt(by_ansi, text.c_str()), "accepted");
    EXPECT_EQ(ReadWideWkt(by_wide, text.c_str()), "accepted");
    EXPECT_TRUE(SameBits(by_ansi, system)) << code;
    EXPECT_TRUE(SameBits(by_wide, system)) << code;
  }
}

TEST(ProjectedWkt, ParametersAreFoundInAnyOrderAndCase) {
  Pro system;
  EXPECT_EQ(ReadWkt(system,
                    ("projcs[\"p\",parameter[\"Scale_Factor\",0.9996],"
                     "PARAMETER[\"FALSE_NORTHING\",-10.5]" +
                     kEasting + "," + kGeographic +
                     ",Parameter[\"Central_Meridian\",+114.0],projection[\"TRANSVERSE_mercator\"]]")
                        .c_str()),
            "accepted");
  EXPECT_TRUE(SameBits(system, Pro(Geo::WGS84, 114.0, 38500000.0, -10.5, 0.9996)));
}

TEST(ProjectedWkt, LowerCaseProjectionIsAccepted) {
  Pro system;
  EXPECT_EQ(ReadWkt(system, Projected(",PROJECTION[\"transverse_mercator\"]" + kMeridian +
                                      kEasting + kNorthing + kScale)
                                .c_str()),
            "accepted");
}

TEST(ProjectedWkt, OtherNodesAreNotRead) {
  Pro system;
  EXPECT_EQ(ReadWkt(system, Projected(kProjection + ",PARAMETER[\"latitude_of_origin\",49]" +
                                      kMeridian + kEasting + kNorthing + kScale +
                                      ",UNIT[\"foot\",0.3048],AXIS[\"X\",NORTH]")
                                .c_str()),
            "accepted");
  EXPECT_TRUE(SameBits(system, Pro(Geo::WGS84, 114.0, 38500000.0, -10.5, 0.9996)));
}

// A failure leaves what was read before it: the ellipsoid, then the parameters in their order.
TEST(ProjectedWkt, RefusedTextsLeaveWhatWasReadBeforeTheFailure) {
  const Pro before(Geo::XiAn80, 1.0, 2.0, 3.0, 4.0);
  const struct {
    std::string text;
    std::string message;
    Pro after;
  } cases[] = {
      {"", messages::kNoKey, before},
      {"PROJCS[\"p\"", Formatted(messages::kNoEndMark, "p"), before},
      {"PROJCS[\"p\"," + kProjection + "]", messages::kNoSpheroid, before},
      {kGeographic, messages::kNoProjection, Pro(Geo::WGS84, 1.0, 2.0, 3.0, 4.0)},
      {Projected(""), messages::kNoProjection, Pro(Geo::WGS84, 1.0, 2.0, 3.0, 4.0)},
      {Projected(",PROJECTION[]"), messages::kNoProjection, Pro(Geo::WGS84, 1.0, 2.0, 3.0, 4.0)},
      {Projected(",PROJECTION[Transverse_Mercator]"), messages::kNoProjection,
       Pro(Geo::WGS84, 1.0, 2.0, 3.0, 4.0)},
      {Projected(",PROJECTION[5]"), messages::kNoProjection, Pro(Geo::WGS84, 1.0, 2.0, 3.0, 4.0)},
      {Projected(",PROJECTION[\"Gauss_Kruger\"]"),
       Formatted(messages::kWrongProjection, "Gauss_Kruger"), Pro(Geo::WGS84, 1.0, 2.0, 3.0, 4.0)},
      {Projected(",PROJECTION[\"\"]"), Formatted(messages::kWrongProjection, ""),
       Pro(Geo::WGS84, 1.0, 2.0, 3.0, 4.0)},
      {Projected(kProjection), messages::kNoCentralMeridian, Pro(Geo::WGS84, 1.0, 2.0, 3.0, 4.0)},
      {Projected(kProjection + kMeridian + kScale), messages::kNoFalseEasting,
       Pro(Geo::WGS84, 114.0, 2.0, 3.0, 4.0)},
      {Projected(kProjection + kMeridian + kEasting + kScale), messages::kNoFalseNorthing,
       Pro(Geo::WGS84, 114.0, 38500000.0, 3.0, 4.0)},
      {Projected(kProjection + kMeridian + kEasting + kNorthing), messages::kNoScaleFactor,
       Pro(Geo::WGS84, 114.0, 38500000.0, -10.5, 4.0)},
      {Projected(kProjection + kMeridian + kEasting + kNorthing +
                 ",PARAMETER[\"scale_factor\",\"1\"]"),
       messages::kNoScaleFactor, Pro(Geo::WGS84, 114.0, 38500000.0, -10.5, 4.0)},
      {Projected(kProjection + ",PARAMETER[\"central_meridian\",1e2]" + kMeridian),
       messages::kNoCentralMeridian, Pro(Geo::WGS84, 1.0, 2.0, 3.0, 4.0)},
  };
  for (const auto& c : cases) {
    Pro by_ansi = before;
    EXPECT_EQ(ReadWkt(by_ansi, c.text.c_str()), c.message) << c.text;
    EXPECT_TRUE(SameBits(by_ansi, c.after)) << c.text;
    Pro by_wide = before;
    EXPECT_EQ(ReadWideWkt(by_wide, c.text.c_str()), c.message) << c.text;
    EXPECT_TRUE(SameBits(by_wide, c.after)) << c.text;
  }
}

TEST(ProjectedWkt, NullTextsAndUnwantedMessages) {
  Pro system;
  char* message = nullptr;
  EXPECT_FALSE(system.SetFromWKTA(nullptr, &message));
  EXPECT_STREQ(Text(message).get(), messages::kNullText);
  EXPECT_FALSE(system.SetFromWKTA(nullptr, nullptr));
  EXPECT_FALSE(system.SetFromWKTW(nullptr, nullptr));
  EXPECT_TRUE(SameBits(system, Pro()));
}

TEST(ProjectedWkt, MessageIsLeftAloneOnSuccess) {
  Pro system;
  char ansi[] = "before";
  char* message = ansi;
  EXPECT_TRUE(system.SetFromWKTA(WktOf(Pro()).c_str(), &message));
  EXPECT_EQ(message, ansi);
}

}  // namespace
}  // namespace geo_test
