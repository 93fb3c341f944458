#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "command.h"
#include "errors.h"
#include "exit_code.h"
#include "geo_csv.h"
#include "geo_system.h"
#include "support/build_paths.h"
#include "tests/tools/run_qn.h"

namespace qn {

extern const Command kGeoCommand;

}  // namespace qn

namespace {

using namespace qn;

std::string Shifted(const std::string& csv, const CsvColumns& columns = {}) {
  return ConvertCsv(csv, columns, 1, "x2,y2", [](const Point& p) {
    return Point{p.x + 1.0, p.y + 2.0};
  });
}

TEST(QnGeoCsv, ConvertedCoordinatesAreAppendedToTheRows) {
  EXPECT_EQ(Shifted("name,lon,lat\r\na,1,2\r\n\r\n\"b,c\", -1.5 ,\"2\"\n"),
            "name,lon,lat,x2,y2\na,1,2,2.0,4.0\n\"b,c\", -1.5 ,\"2\",-0.5,4.0\n");
}

TEST(QnGeoCsv, BytesOutsideTheCoordinatesAreKept) {
  EXPECT_EQ(Shifted("\xEF\xBB\xBFLONGITUDE,Latitude,n\n1,2,\xE5\x8C\x97\n"),
            "\xEF\xBB\xBFLONGITUDE,Latitude,n,x2,y2\n1,2,\xE5\x8C\x97,2.0,4.0\n");
}

TEST(QnGeoCsv, ColumnsMayBeNamed) {
  EXPECT_EQ(Shifted("a,b\n1,2", {"B", "a"}), "a,b,x2,y2\n1,2,3.0,3.0\n");
}

TEST(QnGeoCsv, MissingColumnsAndCoordinatesAreFailures) {
  EXPECT_THROW(Shifted(""), Failure);
  EXPECT_THROW(Shifted("a,b\n1,2\n"), Failure);
  EXPECT_THROW(Shifted("a,b\n1,2\n", {"a", "c"}), Failure);
  for (const char* row : {"1", "1,", "1,x", "x,1", "1,2 3", "1e,2"}) {
    EXPECT_THROW(Shifted(std::string("x,y\n") + row), Failure) << row;
  }
}

TEST(QnGeoCsv, NumbersAreReadWhole) {
  double number = 0.0;
  EXPECT_TRUE(ReadNumber(" +1.5e2\t", number));
  EXPECT_EQ(number, 150.0);
  for (const char* text : {"", " ", "1x", "+-1", "1,5", "--1"}) {
    EXPECT_FALSE(ReadNumber(text, number)) << text;
  }
}

TEST(QnGeoSystem, DescriptionsGiveTheirSystems) {
  EXPECT_EQ(GeoSystem("lonlat").GetKind(), GeoSystem::Kind::kLonLat);
  EXPECT_EQ(GeoSystem("mercator").GetKind(), GeoSystem::Kind::kWebMercator);
  EXPECT_EQ(GeoSystem("EPSG:4547").Projected().GetCentralMeridian(), 114.0);
  EXPECT_EQ(GeoSystem("4547").Projected().GetCentralMeridian(), 114.0);
  EXPECT_EQ(GeoSystem("utm50").Projected().GetUTMCode(), 50);
  EXPECT_EQ(GeoSystem("UTM50N").Projected().GetUTMCode(), 50);
  EXPECT_EQ(GeoSystem("utm50s").Projected().GetUTMCode(), -50);
  EXPECT_EQ(GeoSystem(QUARNFC_TEST_DATA "/wkt/epsg-32650.gdal.wkt").Projected().GetUTMCode(), 50);
  for (const char* unknown : {"utm61", "epsg:9", "32750"}) {
    EXPECT_THROW(GeoSystem{unknown}, UsageError) << unknown;
  }
  for (const char* refused : {"no such file", QUARNFC_TEST_DATA "/wkt/epsg-4326.gdal.wkt"}) {
    EXPECT_THROW(GeoSystem{refused}, Failure) << refused;
  }
}

TEST(QnGeoSystem, CodesAreFoundForTheirSystems) {
  for (const int code : {2327, 2370, 2401, 4534, 32501, 32650}) {
    CQNProCoordinateSystem system;
    CQNProCoordinateSystem::EPCSType type;
    ASSERT_TRUE(system.setByEPSGCode(code, type));
    const std::vector<int> codes = FindEpsgCodes(system);
    EXPECT_NE(std::find(codes.begin(), codes.end(), code), codes.end()) << code;
    for (const int found_code : codes) {
      CQNProCoordinateSystem found;
      ASSERT_TRUE(found.setByEPSGCode(found_code, type)) << found_code;
      EXPECT_TRUE(found == system) << found_code;
    }
  }
  const CQNProCoordinateSystem unknown(CQNGeoCoordinateSystem(1, 2), 3, 4, 5, 6);
  EXPECT_TRUE(FindEpsgCodes(unknown).empty());
}

qn_test::Outcome RunGeo(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), "geo");
  return qn_test::RunQn(std::span(&kGeoCommand, 1), arguments);
}

const std::string kTexts = QUARNFC_TEST_DATA "/wkt/";

TEST(QnGeo, PointsAreConvertedThereAndBack) {
  const qn_test::Outcome there = {kSuccess, "395837.1756,3124188.4432\n500000.0000,0.0000\n"};
  EXPECT_EQ(
      RunGeo({"convert", "--from", "lonlat", "--to", "4547", "112.938814,28.228209", "114,0"}),
      there);
  const qn_test::Outcome back = {kSuccess, "112.938814,28.228209\n"};
  EXPECT_EQ(RunGeo({"convert", "--from", "4547", "--to", "lonlat", "--digits", "6",
                    "395837.1756,3124188.4432"}),
            back);
}

TEST(QnGeo, WktIsWrittenForCodesAndNames) {
  EXPECT_EQ(RunGeo({"wkt", "4547"}).output.find("PROJCS[\"CGCS2000 / 3-degree"), 0u);
  EXPECT_EQ(RunGeo({"wkt", "wgs84"}).output.find("GEOGCS[\"WGS 84\""), 0u);
  EXPECT_EQ(RunGeo({"wkt", "lonlat"}).code, kUsageError);
}

TEST(QnGeo, InfoTellsTextsApart) {
  const qn_test::Outcome accepted = RunGeo({"info", kTexts + "epsg-32650.esri.wkt"});
  EXPECT_EQ(accepted.code, kSuccess);
  EXPECT_NE(accepted.output.find("UTM zone            50 north"), std::string::npos);
  // A system that two codes share is shown with both.
  const qn_test::Outcome shared = RunGeo({"info", kTexts + "epsg-4547.gdal.wkt"});
  EXPECT_EQ(shared.code, kSuccess);
  for (const char* code : {"EPSG code    2435 ", "EPSG code    4547 "}) {
    EXPECT_NE(shared.output.find(code), std::string::npos) << shared.output;
  }
  EXPECT_EQ(RunGeo({"info", kTexts + "epsg-4326.wkt2.wkt"}).code, kFailure);
}

TEST(QnGeo, CitiesAreProjectedIntoTheirZones) {
  const std::string districts = QUARNFC_TEST_DATA "/../../data/districts-utf8.csv";
  const qn_test::Outcome all = RunGeo({"cities", districts});
  EXPECT_EQ(all.code, kSuccess);
  EXPECT_NE(all.output.find("3508 places; the largest error of the way back is 0.2868 mm"),
            std::string::npos);
  EXPECT_EQ(RunGeo({"cities", districts, "no such code"}).code, kFailure);
}

TEST(QnGeo, WrongCommandLinesAreUsageErrors) {
  const std::vector<std::string> cases[] = {
      {"convert", "1,2"},
      {"convert", "--from", "lonlat", "--to", "4547"},
      {"convert", "--from", "lonlat", "--to", "4547", "1;2"},
      {"convert", "--from", "lonlat", "--to", "utm99", "1,2"},
      {"convert", "--from", "lonlat", "--to", "4547", "--csv", "x.csv", "1,2"},
      {"wkt"},
      {"info"},
      {"cities"},
  };
  for (const auto& arguments : cases) EXPECT_EQ(RunGeo(arguments).code, kUsageError);
}

}  // namespace
