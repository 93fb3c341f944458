// SPDX-License-Identifier: MIT
// Coordinate systems from the texts that PROJ, GDAL and Esri's programs write: those of
// tests/data/wkt, which generate.sh beside them makes.
#include <quarnfc/ext/wkt_system.h>

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "support/build_paths.h"

namespace {

using quarnfc::ext::FindOfficialSystem;
using quarnfc::ext::ReadWktSystem;
using quarnfc::ext::SystemKind;
using quarnfc::ext::TransverseMercatorParameters;
using quarnfc::ext::WktReport;

void ExpectSame(const TransverseMercatorParameters& a, const TransverseMercatorParameters& b) {
  EXPECT_EQ(a.central_meridian, b.central_meridian);
  EXPECT_EQ(a.latitude_of_origin, b.latitude_of_origin);
  EXPECT_EQ(a.false_easting, b.false_easting);
  EXPECT_EQ(a.false_northing, b.false_northing);
  EXPECT_EQ(a.scale_factor, b.scale_factor);
}

TEST(WktSystem, TheTextsOfEveryOfficialCodeGiveItsParameters) {
  std::ifstream table(std::string(QUARNFC_TEST_DATA) + "/wkt/official-systems.txt",
                      std::ios::binary);
  std::map<std::string, int> count;
  std::string code, form, text;
  while (std::getline(table, code, '\t') && std::getline(table, form, '\t') &&
         std::getline(table, text)) {
    SCOPED_TRACE(testing::Message() << code << " " << form);
    const auto official = FindOfficialSystem(std::stoi(code));
    ASSERT_TRUE(official.has_value());
    WktReport report;
    const auto system = ReadWktSystem(text, &report);
    ASSERT_TRUE(system.has_value()) << report.error;
    EXPECT_EQ(report.not_honoured, std::vector<std::string>());
    EXPECT_EQ(system->kind, official->kind);
    EXPECT_EQ(system->datum, official->datum);
    EXPECT_EQ(system->ellipsoid.semi_major_axis, official->ellipsoid.semi_major_axis);
    EXPECT_EQ(system->ellipsoid.inverse_flattening, official->ellipsoid.inverse_flattening);
    EXPECT_EQ(system->unit, 1.0);
    if (system->kind == SystemKind::kTransverseMercator) {
      ExpectSame(system->parameters, official->parameters);
    }
    ++count[form];
  }
  const std::map<std::string, int> all = {
      {"WKT1_ESRI", 317}, {"WKT1_GDAL", 317}, {"WKT2:2019", 317}};
  EXPECT_EQ(count, all);
}

constexpr char kBase1[] =
    "GEOGCS[\"WGS 84\",DATUM[\"WGS_1984\",SPHEROID[\"WGS 84\",6378137,298.257223563]],"
    "PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]]";
constexpr char kBase2[] =
    "DATUM[\"China 2000\",ELLIPSOID[\"CGCS2000\",6378.137,298.257222101,"
    "LENGTHUNIT[\"kilometre\",1000]]]";

std::string Projcs(const std::string& inner, const std::string& unit = "UNIT[\"metre\",1]") {
  return "PROJCS[\"x\"," + std::string(kBase1) +
         ",PROJECTION[\"Transverse_Mercator\"],PARAMETER[\"central_meridian\",117]," + inner +
         unit + "]";
}

std::string Projcrs(const std::string& parameters, const std::string& axes) {
  return "PROJCRS[\"x\",BASEGEODCRS[\"y\"," + std::string(kBase2) +
         "],CONVERSION[\"z\",METHOD[\"Transverse Mercator\"],"
         "PARAMETER[\"Longitude of natural origin\",117,ANGLEUNIT[\"degree\",0.0174532925199433]]" +
         parameters + "],CS[Cartesian,2]," + axes + "]";
}

TEST(WktSystem, UnitsOfLengthAreHonoured) {
  const auto feet = ReadWktSystem(
      Projcs("PARAMETER[\"false_easting\",1000],PARAMETER[\"latitude_of_origin\",30],",
             "UNIT[\"foot\",0.3048]"));
  ASSERT_TRUE(feet.has_value());
  EXPECT_EQ(feet->unit, 0.3048);
  EXPECT_DOUBLE_EQ(feet->parameters.false_easting, 304.8);
  EXPECT_EQ(feet->parameters.latitude_of_origin, 30.0);
  const auto kilometres = ReadWktSystem(
      Projcrs(",PARAMETER[\"False easting\",500,LENGTHUNIT[\"kilometre\",1000]],"
              "PARAMETER[\"False northing\",7]",
              "AXIS[\"e\",east,ORDER[1]],AXIS[\"n\",north,ORDER[2]],LENGTHUNIT[\"foot\",0.3048]"));
  ASSERT_TRUE(kilometres.has_value());
  EXPECT_EQ(kilometres->ellipsoid.semi_major_axis, 6378137.0);
  EXPECT_EQ(kilometres->parameters.false_easting, 500000.0);
  EXPECT_DOUBLE_EQ(kilometres->parameters.false_northing, 7 * 0.3048);
}

TEST(WktSystem, TheOrderOfTheAxesIsTold) {
  const auto north = ReadWktSystem(Projcrs(
      "", "AXIS[\"x\",north,LENGTHUNIT[\"metre\",1]],AXIS[\"y\",east,LENGTHUNIT[\"metre\",1]]"));
  ASSERT_TRUE(north.has_value());
  EXPECT_TRUE(north->north_first);
  EXPECT_EQ(north->unit, 1.0);
  const auto east = ReadWktSystem(Projcs("AXIS[\"E\",EAST],AXIS[\"N\",NORTH],"));
  ASSERT_TRUE(east.has_value());
  EXPECT_FALSE(east->north_first);
}

TEST(WktSystem, WhatIsPassedOverIsSaid) {
  const std::string shift = "TOWGS84[1,2,3,0,0,0,0]";
  std::string shifted = kBase1;
  shifted.insert(shifted.find("]],PRIMEM") + 1, "," + shift);
  const std::pair<std::string, std::vector<std::string>> cases[] = {
      {shifted, {"TOWGS84 in DATUM"}},
      {Projcs("EXTENSION[\"PROJ4\",\"+proj=tmerc\"],"), {"EXTENSION in PROJCS"}},
      {Projcs("FOO[1],AUTHORITY[\"EPSG\",\"1\"],"), {"FOO in PROJCS"}},
      {"COMPD_CS[\"x\"," + std::string(kBase1) + ",VERT_CS[\"h\",UNIT[\"metre\",1]]]",
       {"the vertical part of COMPD_CS"}},
      {"BOUNDCRS[SOURCECRS[" + std::string(kBase1) + "],TARGETCRS[" + kBase1 + "]]",
       {"the transformation of BOUNDCRS"}},
      {"GEOGCRS[\"x\",DYNAMIC[FRAMEEPOCH[2010]]," + std::string(kBase2) +
           ",CS[ellipsoidal,3],AXIS[\"lat\",north],AXIS[\"lon\",east],AXIS[\"h\",up]]",
       {"DYNAMIC in GEOGCRS", "the height axis h"}},
  };
  for (const auto& [text, expected] : cases) {
    WktReport report;
    EXPECT_TRUE(ReadWktSystem(text, &report).has_value()) << report.error;
    EXPECT_EQ(report.not_honoured, expected) << text;
  }
}

TEST(WktSystem, WhatWouldMoveCoordinatesIsRefused) {
  const std::string degrees = "UNIT[\"degree\",0.0174532925199433]";
  std::string grads = kBase1;
  grads.replace(grads.find(degrees), degrees.size(), "UNIT[\"grad\",0.015707963267949]");
  const std::pair<std::string, const char*> cases[] = {
      {grads, "the WKT has angles in grad, which is not honoured here"},
      {"GEOGCS[\"x\",DATUM[\"d\",SPHEROID[\"s\",6378137,298.25]],PRIMEM[\"Paris\",2.337]]",
       "the WKT has the prime meridian Paris, which is not honoured here"},
      {"GEOGCS[\"x\",DATUM[\"d\",SPHEROID[\"s\",6378137,0]]]",
       "the WKT has a spheroid that is no flattened ellipsoid, which is not honoured here"},
      {"GEOGCS[\"x\",DATUM[\"d\",SPHEROID[\"s\",nan,298.25]]]",
       "the WKT has no number where SPHEROID needs one"},
      {"GEOGCS[\"x\",DATUM[\"d\",SPHEROID[\"s\",1e300,298.25,LENGTHUNIT[\"u\",1e300]]]]",
       "the WKT has a spheroid that is no flattened ellipsoid, which is not honoured here"},
      {Projcs("PARAMETER[\"false_easting\",1e300],", "UNIT[\"u\",1e300]"),
       "the WKT has a number in PARAMETER too large"},
      {"GEOGCS[\"x\",DATUM[\"d\"]]", "the WKT has no spheroid in its DATUM"},
      {"GEOCCS[\"x\",DATUM[\"d\"]]", "the WKT is a GEOCCS, which is not read here"},
      {"GEOGCS[\"x\"", "the WKT cannot be read: brackets do not match"},
      {Projcs("PARAMETER[\"azimuth\",30],"),
       "the WKT has the parameter azimuth, which is not honoured here"},
      {Projcs("AXIS[\"S\",SOUTH],AXIS[\"W\",WEST],"),
       "the WKT has an axis to the SOUTH, which is not honoured here"},
      {Projcs("AXIS[\"N\",NORTH],"),
       "the WKT has axes that are no pair, which is not honoured here"},
      {Projcs("", "UNIT[\"metre\",0]"),
       "the WKT has a unit of length that is none, which is not honoured here"},
      {Projcrs("",
               "AXIS[\"e\",east,LENGTHUNIT[\"metre\",1]],"
               "AXIS[\"n\",north,LENGTHUNIT[\"foot\",0.3048]]"),
       "the WKT has axes of different units of length, which is not honoured here"},
      {"PROJCS[\"x\"," + std::string(kBase1) +
           ",PROJECTION[\"Mercator_1SP\"],PARAMETER[\"central_meridian\",0],UNIT[\"metre\",1]]",
       "the WKT has the projection Mercator_1SP, which is not honoured here"},
      {"PROJCS[\"x\"," + std::string(kBase1) +
           ",PROJECTION[\"Mercator_Auxiliary_Sphere\"],PARAMETER[\"Central_Meridian\",10],"
           "UNIT[\"metre\",1]]",
       "the WKT has a Web Mercator with another Central_Meridian, which is not honoured here"},
      {"PROJCS[\"x\"," + std::string(kBase1) + ",PROJECTION[\"Gauss_Kruger\"],UNIT[\"metre\",1]]",
       "the WKT has no central meridian"},
  };
  for (const auto& [text, error] : cases) {
    WktReport report;
    EXPECT_FALSE(ReadWktSystem(text, &report).has_value()) << text;
    EXPECT_EQ(report.error, error) << text;
    EXPECT_FALSE(ReadWktSystem(text).has_value()) << "nobody need ask";
  }
}

}  // namespace
