#include <gtest/gtest.h>

#include <string>

#include "errors.h"
#include "geo_csv.h"
#include "geo_system.h"

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
    CQNProCoordinateSystem found;
    ASSERT_TRUE(found.setByEPSGCode(FindEpsgCode(system), type)) << code;
    EXPECT_TRUE(found == system) << code;
  }
  EXPECT_EQ(FindEpsgCode(CQNProCoordinateSystem(CQNGeoCoordinateSystem(1, 2), 3, 4, 5, 6)), 0);
}

}  // namespace
