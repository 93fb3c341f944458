// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "qn/command.h"
#include "qn/errors.h"
#include "qn/exit_code.h"
#include "qn/geo/conversion.h"
#include "qn/geo/point.h"
#include "qn/geo/system.h"
#include "qn/geo/wkt_system.h"
#include "qn/input_file.h"
#include "support/build_paths.h"
#include "tests/support/contains.h"
#include "tests/support/temp_file.h"
#include "tests/tools/run_qn.h"
#include "tests/tools/standard_input.h"

namespace qn {

extern const Command kGeoCommand;

}  // namespace qn

namespace {

using qn::Failure;
using qn::FindEpsgCodes;
using qn::GeoSystem;
using qn::GeoSystemOptions;
using qn::kFailure;
using qn::kGeoCommand;
using qn::kSuccess;
using qn::kUsageError;
using qn::Point;
using qn::ReadCoordinate;
using qn::ReadInput;
using qn::ReadNumber;
using qn::ReadWktSystem;
using qn::UsageError;
using quarnfc_test::Contains;
using quarnfc_test::TempFile;

qn_test::FullOutcome RunGeo(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), "geo");
  return qn_test::RunQn(std::span(&kGeoCommand, 1), arguments);
}

// --- files of points ----------------------------------------------------------------------------

struct Converted {
  int code;
  std::string text;
  std::string errors;
};

// A CSV file converted from lonlat to the plane of Web Mercator without decimals.
Converted ConvertedCsv(const std::string& csv, std::vector<std::string> more = {}) {
  const TempFile file(csv);
  const TempFile target("before");
  std::vector<std::string> arguments = {"convert",   "--from",   "lonlat",     "--to",
                                        "mercator",  "--digits", "0",          "--csv",
                                        file.path(), "-o",       target.path()};
  arguments.insert(arguments.end(), more.begin(), more.end());
  const qn_test::FullOutcome run = RunGeo(arguments);
  return {run.code, ReadInput(target.path()), run.errors};
}

TEST(QnGeoCsv, ConvertedCoordinatesAreAppendedToTheRows) {
  EXPECT_EQ(ConvertedCsv("name,lon,lat\r\na,1,2\r\n\r\n\"b,c\", -1.5 ,\"2\"\n").text,
            "name,lon,lat,to_easting,to_northing\na,1,2,111319,222684\n"
            "\"b,c\", -1.5 ,\"2\",-166979,222684\n");
}

TEST(QnGeoCsv, EncodingOfTheFileIsKept) {
  for (const char* text : {"\xE5\x8C\x97", "\xB1\xB1"}) {
    EXPECT_EQ(ConvertedCsv("LONGITUDE,Latitude,n\n1,2," + std::string(text) + "\n").text,
              "LONGITUDE,Latitude,n,to_easting,to_northing\n1,2," + std::string(text) +
                  ",111319,222684\n");
  }
  EXPECT_EQ(ConvertedCsv("\xEF\xBB\xBFlon,lat\n1,2\n").text,
            "\xEF\xBB\xBFlon,lat,to_easting,to_northing\n1,2,111319,222684\n");
}

TEST(QnGeoCsv, ColumnsMayBeNamedAndDelimited) {
  EXPECT_EQ(ConvertedCsv("a;b\n2;1", {"--x", "B", "--y", "a", "-d", ";"}).text,
            "a;b;to_easting;to_northing\n2;1;111319;222684\n");
}

TEST(QnGeoCsv, ColumnsNamedXAndYNeedAnOrder) {
  const Converted refused = ConvertedCsv("X,Y\n1,2\n");
  EXPECT_EQ(refused.code, kFailure);
  EXPECT_EQ(refused.text, "before");
  EXPECT_TRUE(Contains(refused.errors, "--order"));
  EXPECT_EQ(ConvertedCsv("X,Y\n1,2\n", {"--order", "en"}).text,
            "X,Y,to_easting,to_northing\n1,2,111319,222684\n");
  EXPECT_EQ(ConvertedCsv("X,Y\n2,1\n", {"--order", "ne"}).text,
            "X,Y,to_northing,to_easting\n2,1,222684,111319\n");
}

TEST(QnGeoCsv, HeaderWithoutColumnsForPointsIsAFailure) {
  EXPECT_EQ(ConvertedCsv("").code, kFailure);
  EXPECT_EQ(ConvertedCsv("a,b\n1,2\n").code, kFailure);
  EXPECT_EQ(ConvertedCsv("a,b\n1,2\n", {"--x", "a", "--y", "c"}).code, kFailure);
  EXPECT_EQ(ConvertedCsv("lon,b\n1,2\n").text, "before");
}

TEST(QnGeoCsv, RowsWithoutAPointAreReportedAndTheRestIsConverted) {
  const Converted converted =
      ConvertedCsv("lon,lat,n\n1,2,a\nx,2,b\n1\n1,,c\nnan,2,d\n1,112.9,e\n1,2,f\n");
  EXPECT_EQ(converted.code, kFailure);
  EXPECT_EQ(converted.text,
            "lon,lat,n,to_easting,to_northing\n1,2,a,111319,222684\nx,2,b,,\n1,,\n1,,c,,\n"
            "nan,2,d,,\n1,112.9,e,,\n1,2,f,111319,222684\n");
  EXPECT_EQ(converted.errors,
            "qn: line 3: no coordinates\nqn: line 4: the row is too short\n"
            "qn: line 5: no coordinates\nqn: line 6: no coordinates\n"
            "qn: line 7: there is no latitude 112.9 (--order ne if it comes first)\n"
            "qn: 5 rows were not converted\n");
  const Converted strict = ConvertedCsv("lon,lat\n1,2\nx,2\n", {"--strict"});
  EXPECT_EQ(strict.code, kFailure);
  EXPECT_EQ(strict.text, "before");
  EXPECT_TRUE(Contains(strict.errors, "line 3: no coordinates"));
}

TEST(QnGeoCsv, QuotedLineEndsStayInTheirRow) {
  EXPECT_EQ(ConvertedCsv("n,lon,lat\n\"a\nb\",1,2\n").text,
            "n,lon,lat,to_easting,to_northing\n\"a\nb\",1,2,111319,222684\n");
}

TEST(QnGeoCsv, NumbersAreReadWhole) {
  double number = 0.0;
  EXPECT_TRUE(ReadNumber(" +1.5e2\t", number));
  EXPECT_EQ(number, 150.0);
  for (const char* text : {"", " ", "1x", "+-1", "1,5", "--1", "nan", "inf", "1e999"}) {
    EXPECT_FALSE(ReadNumber(text, number)) << text;
  }
}

TEST(QnGeoPoint, DegreesMayBeSexagesimal) {
  double number = 0;
  EXPECT_TRUE(ReadCoordinate("112d56'19.5\"W", true, number));
  EXPECT_NEAR(number, -(112 + 56 / 60.0 + 19.5 / 3600), 1e-12);
  EXPECT_FALSE(ReadCoordinate("112d56'19.5\"", false, number));
}

// --- systems ------------------------------------------------------------------------------------

const std::string kWktFolder = QUARNFC_TEST_DATA "/wkt/";

GeoSystem LibrarySystem(const std::string& description) {
  GeoSystemOptions options;
  options.as_library = true;
  return GeoSystem(description, options);
}

TEST(QnGeoSystem, DescriptionsGiveTheirSystems) {
  for (const char* degrees : {"lonlat", "4326", "EPSG:4490", "4214", "4610", "cgcs2000"}) {
    EXPECT_TRUE(GeoSystem(degrees).IsLonLat()) << degrees;
  }
  EXPECT_EQ(GeoSystem("mercator").GetKind(), GeoSystem::Kind::kWebMercator);
  EXPECT_EQ(GeoSystem("3857").GetKind(), GeoSystem::Kind::kWebMercator);
  EXPECT_EQ(GeoSystem("EPSG:4547").CentralMeridian(), 114.0);
  EXPECT_EQ(GeoSystem("4547").Zone(), 38);
  EXPECT_EQ(GeoSystem("UTM50N").CentralMeridian(), 117.0);
  EXPECT_EQ(GeoSystem("utm50s").Projected().GetFalseNorthing(), 10000000.0);
  EXPECT_EQ(LibrarySystem("32550").Projected().GetUTMCode(), -50);
  for (const char* unknown : {"utm61", "utm0", "epsg:9", "32550", "tm"}) {
    EXPECT_THROW(GeoSystem{unknown}, UsageError) << unknown;
  }
  EXPECT_THROW(GeoSystem{"no such file"}, Failure);
}

TEST(QnGeoSystem, OfficialParametersDifferFromTheLibrarysWhereTheyMust) {
  EXPECT_EQ(GeoSystem("4526").Projected().GetFalseEasting(), 38500000.0);
  EXPECT_EQ(LibrarySystem("4526").Projected().GetFalseEasting(), 500000.0);
  EXPECT_EQ(GeoSystem("2435").Datum(), "Beijing 1954");
  EXPECT_EQ(LibrarySystem("2435").Datum(), "CGCS2000");
  EXPECT_EQ(GeoSystem("utm50").GetEllipsoid().inverse_flattening, 298.257223563);
  EXPECT_EQ(LibrarySystem("utm50").GetEllipsoid().inverse_flattening, 298.257);
}

TEST(QnGeoSystem, SystemIsMadeFromItsParameters) {
  GeoSystemOptions options;
  options.central_meridian = 112.5;
  options.false_easting = 300000;
  options.false_northing = -2000000;
  options.scale_factor = 1.0001;
  const GeoSystem system("tm", options);
  const Point plane = system.FromLonLat({112.5, 0});
  EXPECT_NEAR(plane.x, 300000, 1e-6);
  EXPECT_NEAR(plane.y, -2000000, 1e-6);
  EXPECT_EQ(system.Zone(), 0);
}

// --- WKT ----------------------------------------------------------------------------------------

TEST(QnGeoWkt, TextsOfOtherProgramsGiveTheSystemsOfTheirCodes) {
  for (const char* code : {"2327", "2362", "2414", "2432", "4526", "4547", "32650", "32750"}) {
    const GeoSystem by_code(code);
    for (const char* writer : {".gdal.wkt", ".esri.wkt"}) {
      const GeoSystem by_text(kWktFolder + "epsg-" + code + writer);
      EXPECT_EQ(by_text.Datum(), by_code.Datum()) << code << writer;
      const double meridian = by_code.CentralMeridian();
      const Point expected = by_code.FromLonLat({meridian + 1, 30});
      const Point plane = by_text.FromLonLat({meridian + 1, 30});
      EXPECT_NEAR(plane.x, expected.x, 1e-4) << code << writer;
      EXPECT_NEAR(plane.y, expected.y, 1e-4) << code << writer;
    }
  }
  for (const char* code : {"4214", "4326", "4490", "4610"}) {
    const GeoSystem by_text(kWktFolder + "epsg-" + code + ".esri.wkt");
    EXPECT_TRUE(by_text.IsLonLat());
    EXPECT_EQ(by_text.Datum(), GeoSystem(code).Datum());
  }
  EXPECT_TRUE(GeoSystem(kWktFolder + "epsg-4326.wkt2.wkt").IsLonLat());
  const GeoSystem web(kWktFolder + "epsg-3857.esri.wkt");
  EXPECT_EQ(web.GetKind(), GeoSystem::Kind::kWebMercator);
}

constexpr char kGeogcs[] =
    "GEOGCS[\"WGS 84\",DATUM[\"WGS_1984\",SPHEROID[\"WGS 84\",6378137,298.257223563]],"
    "PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]]";

std::string GaussKrugerText(const std::string& parameters,
                            const std::string& unit = "UNIT[\"metre\",1]") {
  return "PROJCS[\"x\"," + std::string(kGeogcs) +
         ",PROJECTION[\"Transverse_Mercator\"],PARAMETER[\"central_meridian\",117]," + parameters +
         unit + "]";
}

TEST(QnGeoWkt, LatitudeOfOriginAndUnitsAreHonoured) {
  const TempFile origin(GaussKrugerText("PARAMETER[\"latitude_of_origin\",30],"));
  EXPECT_NEAR(GeoSystem(origin.path()).FromLonLat({117, 30}).y, 0, 1e-6);
  const TempFile plain(GaussKrugerText(""));
  const TempFile feet(
      GaussKrugerText("PARAMETER[\"false_easting\",1000],", "UNIT[\"foot\",0.3048]"));
  const Point metres = GeoSystem(plain.path()).FromLonLat({118, 30});
  const Point in_feet = GeoSystem(feet.path()).FromLonLat({118, 30});
  EXPECT_NEAR(in_feet.x, metres.x / 0.3048 + 1000, 1e-6);
  EXPECT_NEAR(in_feet.y, metres.y / 0.3048, 1e-6);
  EXPECT_NEAR(GeoSystem(feet.path()).ToLonLat(in_feet).x, 118, 1e-9);
}

TEST(QnGeoWkt, WhatIsNotHonouredIsRefused) {
  const std::pair<std::string, const char*> cases[] = {
      {GaussKrugerText("PARAMETER[\"azimuth\",30],"), "the parameter azimuth"},
      {"PROJCS[\"x\"," + std::string(kGeogcs) + ",PROJECTION[\"Mercator\"],UNIT[\"metre\",1]]",
       "the projection Mercator"},
      {"GEOGCS[\"x\",DATUM[\"d\",SPHEROID[\"s\",6378137,298.25]],PRIMEM[\"Paris\",2.337]]",
       "the prime meridian Paris"},
      {"GEOGCS[\"x\",DATUM[\"d\",SPHEROID[\"s\",6378137,298.25]],UNIT[\"grad\",0.0157]]",
       "angles in grad"},
      {"GEOGCS[\"x\",DATUM[\"d\",SPHEROID[\"s\",6378137,0]]]", "no flattened ellipsoid"},
      {"GEOCCS[\"x\",DATUM[\"d\"]]", "GEOCCS"},
      {"GEOGCS[\"x\"", "brackets"},
      {"GEOGCS[\"x\",DATUM[\"d\"]]", "spheroid"},
      {"", "value is missing"},
      {"GEOGCS[\"x]", "not closed"},
      {GaussKrugerText("") + "x", "text follows"},
  };
  for (const auto& [wkt, part] : cases) {
    try {
      ReadWktSystem(wkt);
      ADD_FAILURE() << wkt;
    } catch (const Failure& failure) {
      EXPECT_TRUE(Contains(failure.what(), part)) << failure.what();
    }
  }
  std::string deep;
  for (int i = 0; i < 100000; ++i) deep += "A[";
  EXPECT_THROW(ReadWktSystem(deep), Failure);
  for (const char* refused : {"epsg-4807.gdal.wkt", "epsg-3395.gdal.wkt"}) {
    EXPECT_THROW(GeoSystem{kWktFolder + refused}, Failure) << refused;
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

// --- conversion ---------------------------------------------------------------------------------

qn_test::FullOutcome Convert(const std::string& from, const std::string& to,
                             std::vector<std::string> more) {
  more.insert(more.begin(), {"convert", "--from", from, "--to", to});
  return RunGeo(more);
}

TEST(QnGeo, PointsAreConvertedThereAndBack) {
  const qn_test::Outcome there = {kSuccess, "395837.176,3124188.443\n500000.000,0.000\n"};
  EXPECT_EQ(static_cast<const qn_test::Outcome&>(
                Convert("lonlat", "4547", {"--digits", "3", "112.938814,28.228209", "114,0"})),
            there);
  const qn_test::Outcome back = {kSuccess, "112.938814,28.228209\n"};
  EXPECT_EQ(static_cast<const qn_test::Outcome&>(
                Convert("4547", "lonlat", {"--digits", "6", "395837.1756,3124188.4432"})),
            back);
  EXPECT_EQ(Convert("lonlat", "4547",
                    {"--digits", "1", "--order", "ne", "28d13'41.5524\"N,112d56'19.7304\"E"})
                .output,
            "3124188.4,395837.2\n");
}

TEST(QnGeo, ZoneNumbersInFrontOfEastingsAreRecognisedAndProduced) {
  const std::string back = "112.938814,28.228209\n";
  for (const char* system : {"4526", "4547"}) {
    EXPECT_EQ(Convert(system, "lonlat", {"--digits", "6", "38395837.1756,3124188.4432"}).output,
              back)
        << system;
  }
  EXPECT_EQ(Convert("lonlat", "4526", {"--digits", "1", "112.938814,28.228209"}).output,
            "38395837.2,3124188.4\n");
  EXPECT_EQ(
      Convert("lonlat", "4547", {"--digits", "1", "--zone-prefix", "112.938814,28.228209"}).output,
      "38395837.2,3124188.4\n");
  // The number of another zone, and none where there must be one.
  EXPECT_EQ(Convert("4548", "lonlat", {"38395837,3124188"}).code, kFailure);
  EXPECT_EQ(Convert("4526", "lonlat", {"395837,3124188"}).code, kFailure);
  EXPECT_EQ(Convert("lonlat", "4526", {"--zone-prefix", "113,28"}).code, kUsageError);
}

TEST(QnGeo, ImpossiblePointsAreRefused) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"lonlat", "4547", "28.2,112.9"},
      {"lonlat", "4547", "nan,28"},
      {"lonlat", "4547", "114,90.1"},
      {"lonlat", "4547", "400,28"},
      {"lonlat", "4547", "159,28"},
      {"lonlat", "4547", "69,28"},
      {"lonlat", "mercator", "114,90"},
      {"4547", "lonlat", "500000,99999999"},
      {"4547", "lonlat", "1e12,3000000"},
      {"mercator", "lonlat", "1e9,0"},
      {"utm50", "lonlat", "38395837,3124188"},
  };
  for (const auto& [from, to, point] : cases) {
    const qn_test::FullOutcome run = Convert(from, to, {point});
    EXPECT_NE(run.code, kSuccess) << from << " " << to << " " << point << " " << run.output;
    EXPECT_EQ(run.output, "");
  }
  EXPECT_TRUE(Contains(Convert("lonlat", "4547", {"28.2,112.9"}).errors, "--order ne"));
  EXPECT_EQ(Convert("lonlat", "4547", {"--force", "159,28"}).code, kSuccess);
}

TEST(QnGeo, PointsFarOffTheMeridianAreNoted) {
  const qn_test::FullOutcome near = Convert("lonlat", "4547", {"116.9,28"});
  EXPECT_EQ(near.errors, "");
  const qn_test::FullOutcome far = Convert("lonlat", "4547", {"118,28", "114,28"});
  EXPECT_EQ(far.code, kSuccess);
  EXPECT_EQ(far.errors,
            "qn: note: 1 point lies more than 3 degrees from the central meridian, up to 4\n");
  EXPECT_EQ(Convert("lonlat", "4547", {"--as-library", "126,28"}).code, kFailure);
}

TEST(QnGeo, DatumsAreNotMixedSilently) {
  const qn_test::FullOutcome refused = Convert("2379", "4490", {"500000,3000000"});
  EXPECT_EQ(refused.code, kFailure);
  EXPECT_TRUE(Contains(refused.errors, "Xian 1980"));
  EXPECT_EQ(Convert("2379", "4490", {"--no-datum-shift", "500000,3000000"}).code, kSuccess);
  EXPECT_EQ(Convert("4326", "4547", {"114,30"}).code, kSuccess);
  const qn_test::FullOutcome shifted =
      Convert("beijing54", "wgs84", {"--digits", "6", "--shift", "0,0,0", "114,0"});
  EXPECT_EQ(shifted.output, "114.000000,0.000000\n");
  EXPECT_EQ(Convert("beijing54", "wgs84", {"--shift", "1,2", "114,0"}).code, kUsageError);
  EXPECT_EQ(Convert("beijing54", "wgs84", {"--shift", "1,2,3,4,5,6,7", "114,0"}).code, kUsageError);
  EXPECT_EQ(Convert("beijing54", "wgs84",
                    {"--shift", "1,2,3,4,5,6,7", "--rotation", "position-vector", "114,0"})
                .code,
            kSuccess);
}

// --- lines of standard input --------------------------------------------------------------------

qn_test::FullOutcome ConvertedLines(const std::string& lines, std::vector<std::string> more = {}) {
  const qn_test::StandardInput input(lines);
  std::vector<std::string> arguments = {"convert",  "--from",   "lonlat", "--to",
                                        "mercator", "--digits", "0"};
  arguments.insert(arguments.end(), more.begin(), more.end());
  return RunGeo(arguments);
}

TEST(QnGeoLines, PointsAreConvertedAndWhatFollowsThemStays) {
  EXPECT_EQ(ConvertedLines("1 2\n\n# note\n1,2 rest\r\n  1\t2\tname of it\n1 , 2\n"
                           "1d30'E 2d0'0\"N\n1 2 last"),
            (qn_test::Outcome{kSuccess,
                              "111319\t222684\n\n# note\n111319\t222684 rest\n"
                              "111319\t222684\tname of it\n111319\t222684\n166979\t222684\n"
                              "111319\t222684 last\n"}));
  EXPECT_EQ(ConvertedLines(""), (qn_test::Outcome{kSuccess, ""}));
  EXPECT_EQ(ConvertedLines("2 1\n", {"--order", "ne"}),
            (qn_test::Outcome{kSuccess, "222684\t111319\n"}));
}

TEST(QnGeoLines, WhatIsNoPointIsMarkedAndReported) {
  const auto marked = ConvertedLines("1 2\nx 2\n1\n1 91\n1 2\n");
  EXPECT_EQ(marked, (qn_test::Outcome{kFailure,
                                      "111319\t222684\n*\t*\tx 2\n*\t*\t1\n*\t*\t1 91\n"
                                      "111319\t222684\n"}));
  EXPECT_EQ(marked.errors,
            "qn: line 2: no coordinates\nqn: line 3: no coordinates\n"
            "qn: line 4: there is no latitude 91 (--order ne if it comes first)\n"
            "qn: 3 rows were not converted\n");
  EXPECT_EQ(ConvertedLines("1 2\nx 2\n1 2\n", {"--strict"}).code, kFailure);
}

TEST(QnGeoLines, MayComeOutAsJson) {
  EXPECT_EQ(ConvertedLines("1 2\n# note\n1,2 \"a\" b\nx 2\n", {"--json"}),
            (qn_test::Outcome{kFailure,
                              "{\"line\":1,\"easting\":111319,\"northing\":222684}\n"
                              "{\"line\":3,\"easting\":111319,\"northing\":222684,"
                              "\"rest\":\"\\\"a\\\" b\"}\n"
                              "{\"line\":4,\"error\":\"no coordinates\"}\n"}));
}

TEST(QnGeo, PointsMayComeOutAsJson) {
  EXPECT_EQ(RunGeo({"convert", "--json", "--from", "mercator", "--to", "lonlat", "--digits", "2",
                    "111319.490793,222684.208506", "0,0"}),
            (qn_test::Outcome{kSuccess,
                              "{\"longitude\":1.00,\"latitude\":2.00}\n"
                              "{\"longitude\":0.00,\"latitude\":0.00}\n"}));
  EXPECT_EQ(RunGeo({"convert", "--json", "--from", "lonlat", "--to", "4547", "--csv", "x"}).code,
            kUsageError);
}

TEST(QnGeo, InfoMayComeOutAsJson) {
  EXPECT_EQ(
      RunGeo({"info", "--json", kWktFolder + "epsg-4547.gdal.wkt"}),
      (qn_test::Outcome{kSuccess,
                        "{\"ellipsoid\":\"cgcs2000\",\"semi_major_axis\":6378137.0000,"
                        "\"semi_minor_axis\":6356752.3141,\"inverse_flattening\":298.257222101,"
                        "\"central_meridian\":114,\"false_easting\":500000.0000,"
                        "\"false_northing\":0.0000,\"scale_factor\":1,"
                        "\"equals_epsg_codes\":[2435,4526,4547],\"datum\":\"CGCS2000\"}\n"}));
}

TEST(QnGeo, WhatHasNoEndIsNullForPrograms) {
  const TempFile sphere(
      "GEOGCS[\"s\",DATUM[\"d\",SPHEROID[\"sphere\",6371000,0]],PRIMEM[\"Greenwich\",0],"
      "UNIT[\"degree\",0.0174532925199433]]");
  const std::string facts = RunGeo({"info", "--json", sphere.path()}).output;
  EXPECT_TRUE(Contains(facts, "\"semi_major_axis\":6371000.0000,\"semi_minor_axis\":null,"))
      << facts;
}

TEST(QnGeo, WktIsWrittenForCodesAndNames) {
  EXPECT_EQ(RunGeo({"wkt", "4547"}).output.find("PROJCS[\"CGCS2000 / 3-degree"), 0u);
  EXPECT_EQ(RunGeo({"wkt", "wgs84"}).output.find("GEOGCS[\"WGS 84\""), 0u);
  EXPECT_EQ(RunGeo({"wkt", "lonlat"}).code, kUsageError);
}

TEST(QnGeo, InfoTellsTextsApart) {
  const qn_test::FullOutcome accepted = RunGeo({"info", kWktFolder + "epsg-32650.esri.wkt"});
  EXPECT_EQ(accepted.code, kSuccess);
  EXPECT_NE(accepted.output.find("UTM zone            50 north"), std::string::npos);
  // A system that two codes share is shown with both.
  const qn_test::FullOutcome shared = RunGeo({"info", kWktFolder + "epsg-4547.gdal.wkt"});
  EXPECT_EQ(shared.code, kSuccess);
  for (const char* code : {"EPSG code    2435 ", "EPSG code    4547 "}) {
    EXPECT_NE(shared.output.find(code), std::string::npos) << shared.output;
  }
  EXPECT_EQ(RunGeo({"info", kWktFolder + "epsg-4326.wkt2.wkt"}).code, kFailure);
  EXPECT_TRUE(Contains(RunGeo({"info", kWktFolder + "epsg-27700.gdal.wkt"}).output, "datum "));
}

TEST(QnGeo, CitiesAreProjectedIntoTheirZones) {
  const std::string districts = QUARNFC_TEST_DATA "/../../data/districts-utf8.csv";
  const qn_test::FullOutcome all = RunGeo({"cities", districts});
  EXPECT_EQ(all.code, kSuccess);
  EXPECT_NE(all.output.find("3508 places; the largest error of the way back is 0.2868 mm"),
            std::string::npos);
  EXPECT_EQ(RunGeo({"cities", districts, "no such code"}).code, kFailure);
}

TEST(QnGeo, WrongCommandLinesAreUsageErrors) {
  const std::vector<std::string> cases[] = {
      {"convert", "1,2"},
      {"convert", "--from", "lonlat", "--to", "4547", "--order", "xy", "1,2"},
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
