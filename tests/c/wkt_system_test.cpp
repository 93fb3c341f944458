// SPDX-License-Identifier: MIT
// Well-Known Text of other programs through the flat C interface.
#include <gtest/gtest.h>

#include <quarnfc/c/wkt_system.h>
#include <quarnfc/ext/official_systems.h>

#include <memory>
#include <string>

#include "tests/c/handles.h"
#include "tests/c/results.h"

namespace {

using c_results::Error;
using c_results::Geographic;
using c_results::Transverse;

struct FreeWkt {
  void operator()(QncWktSystem* system) const { qncWktSystemFree(system); }
};
using Wkt = std::unique_ptr<QncWktSystem, FreeWkt>;

const std::string kBase =
    "GEOGCS[\"GCS_China_Geodetic_Coordinate_System_2000\",DATUM[\"D_China_2000\","
    "SPHEROID[\"CGCS2000\",6378137.0,298.257222101]],PRIMEM[\"Greenwich\",0.0],"
    "UNIT[\"Degree\",0.0174532925199433]]";

// As Esri writes zone 38.
const std::string kZone38 =
    "PROJCS[\"CGCS2000_3_Degree_GK_Zone_38\"," + kBase +
    ",PROJECTION[\"Gauss_Kruger\"],PARAMETER[\"False_Easting\",38500000.0],"
    "PARAMETER[\"False_Northing\",0.0],PARAMETER[\"Central_Meridian\",114.0],"
    "PARAMETER[\"Scale_Factor\",1.0],PARAMETER[\"Latitude_Of_Origin\",0.0],UNIT[\"Meter\",1.0]]";

}  // namespace

TEST(CInterfaceWktSystem, EsrisZoneProjectsAsTheOfficialOne) {
  const Wkt wkt(qncWktSystemRead(kZone38.c_str(), nullptr));
  ASSERT_NE(wkt, nullptr);
  EXPECT_EQ(qncWktSystemKind(wkt.get()), QNC_WKT_TRANSVERSE_MERCATOR);
  EXPECT_STREQ(qncWktSystemName(wkt.get()), "CGCS2000_3_Degree_GK_Zone_38");
  EXPECT_STREQ(qncWktSystemDatum(wkt.get()), "CGCS2000");
  EXPECT_EQ(qncWktSystemUnit(wkt.get()), 1.0);
  EXPECT_EQ(qncWktSystemIsNorthFirst(wkt.get()), 0);
  EXPECT_EQ(qncWktSystemNotHonouredCount(wkt.get()), 0);
  EXPECT_EQ(qncWktSystemNotHonoured(wkt.get(), 0), nullptr);

  const Transverse zone(qncWktSystemTransverseMercator(wkt.get(), nullptr));
  const quarnfc::ext::EastNorth expected =
      quarnfc::ext::FindOfficialSystem(4526)->Projection().Forward({114.3055, 30.5928});
  double point[2] = {114.3055, 30.5928};
  ASSERT_EQ(qncTransverseMercatorForward(zone.get(), point, point, 1), 1);
  EXPECT_EQ(point[0], expected.east);
  EXPECT_EQ(point[1], expected.north);
}

TEST(CInterfaceWktSystem, Wkt2TellsItsAxesAndUnit) {
  const Wkt wkt(qncWktSystemRead(
      "PROJCRS[\"plan\",BASEGEOGCRS[\"WGS 84\",DATUM[\"World Geodetic System 1984\","
      "ELLIPSOID[\"WGS 84\",6378137,298.257223563,LENGTHUNIT[\"metre\",1]]]],"
      "CONVERSION[\"c\",METHOD[\"Transverse Mercator\"],"
      "PARAMETER[\"Longitude of natural origin\",117,ANGLEUNIT[\"degree\",0.0174532925199433]]],"
      "CS[Cartesian,2],AXIS[\"(N)\",north],AXIS[\"(E)\",east],LENGTHUNIT[\"foot\",0.3048]]",
      nullptr));
  ASSERT_NE(wkt, nullptr);
  EXPECT_EQ(qncWktSystemUnit(wkt.get()), 0.3048);
  EXPECT_EQ(qncWktSystemIsNorthFirst(wkt.get()), 1);
  EXPECT_STREQ(qncWktSystemDatum(wkt.get()), "WGS 84");
}

TEST(CInterfaceWktSystem, GeographicSystemHasAnEllipsoidAndNoProjection) {
  const Wkt wkt(qncWktSystemRead(kBase.c_str(), nullptr));
  ASSERT_NE(wkt, nullptr);
  EXPECT_EQ(qncWktSystemKind(wkt.get()), QNC_WKT_GEOGRAPHIC);
  const Geographic ellipsoid(qncWktSystemGeographic(wkt.get(), nullptr));
  double axis = 0;
  double flattening = 0;
  EXPECT_EQ(qncGeographicEllipsoid(ellipsoid.get(), &axis, &flattening), 1);
  EXPECT_EQ(axis, 6378137.0);
  EXPECT_EQ(flattening, 298.257222101);
  Error error;
  EXPECT_EQ(qncWktSystemTransverseMercator(wkt.get(), error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: the WKT is no transverse Mercator system");
}

TEST(CInterfaceWktSystem, WebMercatorIsToldApart) {
  const Wkt wkt(qncWktSystemRead(("PROJCS[\"web\"," + kBase +
                                  ",PROJECTION[\"Mercator_Auxiliary_Sphere\"],"
                                  "PARAMETER[\"Central_Meridian\",0.0],UNIT[\"Meter\",1.0]]")
                                     .c_str(),
                                 nullptr));
  EXPECT_EQ(qncWktSystemKind(wkt.get()), QNC_WKT_WEB_MERCATOR);
}

TEST(CInterfaceWktSystem, WhatIsPassedOverIsSaid) {
  const std::string shifted =
      std::string(kBase).insert(kBase.find("SPHEROID"), "TOWGS84[0,0,0,0,0,0,0],");
  const std::string text = std::string(shifted).insert(shifted.size() - 1, ",COLOUR[\"red\"]");
  const Wkt wkt(qncWktSystemRead(text.c_str(), nullptr));
  ASSERT_NE(wkt, nullptr);
  ASSERT_EQ(qncWktSystemNotHonouredCount(wkt.get()), 2);
  EXPECT_STREQ(qncWktSystemNotHonoured(wkt.get(), 0), "COLOUR in GEOGCS");
  EXPECT_STREQ(qncWktSystemNotHonoured(wkt.get(), 1), "TOWGS84 in DATUM");
  EXPECT_EQ(qncWktSystemNotHonoured(wkt.get(), 2), nullptr);
  EXPECT_EQ(qncWktSystemNotHonoured(wkt.get(), -1), nullptr);
}

TEST(CInterfaceWktSystem, NamesAreUtf8WhateverTheCodePageHas) {
  const std::string name = "\xE9\xAB\x98\xE6\x96\xAF \xF0\x9F\x98\x80";
  const std::string text =
      std::string(kZone38).replace(kZone38.find("CGCS2000_3_Degree_GK_Zone_38"), 28, name);
  const Wkt wkt(qncWktSystemRead(text.c_str(), nullptr));
  EXPECT_STREQ(qncWktSystemName(wkt.get()), name.c_str());
}

TEST(CInterfaceWktSystem, WhatCannotBeHonouredIsRefusedWithItsReason) {
  struct Case {
    std::string wkt;
    const char* reason;
  };
  const std::string conic =
      std::string(kZone38).replace(kZone38.find("Gauss_Kruger"), 12, "\xE5\x9C\x86\xE9\x94\xA5");
  const Case cases[] = {
      {conic,
       "5: Quarn: the WKT has the projection \xE5\x9C\x86\xE9\x94\xA5, which is not honoured here"},
      {"PROJCS[\"a\"", "5: Quarn: the WKT cannot be read: brackets do not match"},
      {"PROJCS[\"\xFF\"]", "5: Quarn: the WKT is not UTF-8"}};
  for (const Case& c : cases) {
    Error error;
    EXPECT_EQ(qncWktSystemRead(c.wkt.c_str(), error.Out()), nullptr);
    EXPECT_EQ(error.Text(), c.reason);
  }
}

TEST(CInterfaceWktSystem, NullIsAnArgumentErrorOrNothing) {
  Error error;
  EXPECT_EQ(qncWktSystemRead(nullptr, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  EXPECT_EQ(qncWktSystemGeographic(nullptr, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  EXPECT_EQ(qncWktSystemTransverseMercator(nullptr, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  EXPECT_EQ(qncWktSystemKind(nullptr), 0);
  EXPECT_EQ(qncWktSystemName(nullptr), nullptr);
  EXPECT_EQ(qncWktSystemDatum(nullptr), nullptr);
  EXPECT_EQ(qncWktSystemUnit(nullptr), 1);
  EXPECT_EQ(qncWktSystemIsNorthFirst(nullptr), 0);
  EXPECT_EQ(qncWktSystemNotHonouredCount(nullptr), 0);
  EXPECT_EQ(qncWktSystemNotHonoured(nullptr, 0), nullptr);
  qncWktSystemFree(nullptr);
}
