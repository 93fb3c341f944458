// SPDX-License-Identifier: MIT
// Texts as widespread software writes them: those of tests/data/wkt, which generate.sh beside them
// makes with PROJ. Each is accepted or refused exactly as the rules say.
#include <gtest/gtest.h>

#include <string>

#include "geo/messages.h"
#include "support/build_paths.h"
#include "tests/geo/geo_support.h"

namespace geo_test {
namespace {

namespace messages = quarnfc::geo::messages;

std::string Load(const std::string& name) {
  return ReadFile(std::string(QUARNFC_TEST_DATA) + "/wkt/" + name + ".wkt");
}

const Geo kFullWgs84(6378137.0, 298.257223563);
const Geo kAiry(6377563.396, 299.3249646);
const Geo kClarkeIgn(6378249.2, 293.466021293627);

TEST(SoftwareWkt, SpheroidIsReadFromEveryText) {
  const struct {
    const char* name;
    const Geo* geo;
  } cases[] = {
      {"epsg-4326", &kFullWgs84},    {"epsg-4490", &Geo::CGCS2000},  {"epsg-4214", &Geo::Beijing54},
      {"epsg-4610", &Geo::XiAn80},   {"epsg-4807", &kClarkeIgn},     {"epsg-2327", &Geo::XiAn80},
      {"epsg-2362", &Geo::XiAn80},   {"epsg-2414", &Geo::Beijing54}, {"epsg-2432", &Geo::Beijing54},
      {"epsg-4526", &Geo::CGCS2000}, {"epsg-4547", &Geo::CGCS2000},  {"epsg-27700", &kAiry},
      {"epsg-2193", &Geo::CGCS2000}, {"epsg-3395", &kFullWgs84},     {"epsg-32650", &kFullWgs84},
      {"epsg-32750", &kFullWgs84},   {"epsg-3857", &kFullWgs84},
  };
  for (const auto& c : cases) {
    for (const char* flavour : {".gdal", ".esri"}) {
      const std::string text = Load(c.name + std::string(flavour));
      Geo system(1.0, 2.0);
      EXPECT_EQ(ReadWkt(system, text.c_str()), "accepted") << c.name << flavour;
      EXPECT_TRUE(SameBits(system, *c.geo)) << c.name << flavour;
    }
  }
}

struct Accepted {
  const char* name;
  Pro system;
};

TEST(SoftwareWkt, TransverseMercatorTextsAreAccepted) {
  const Accepted cases[] = {
      {"epsg-2327.gdal", Pro(Geo::XiAn80, 75.0, 13500000.0, 0.0, 1.0)},
      {"epsg-2362.gdal", Pro(Geo::XiAn80, 114.0, 38500000.0, 0.0, 1.0)},
      {"epsg-2414.gdal", Pro(Geo::Beijing54, 114.0, 38500000.0, 0.0, 1.0)},
      {"epsg-2432.gdal", Pro(Geo::Beijing54, 105.0, 500000.0, 0.0, 1.0)},
      {"epsg-4526.gdal", Pro(Geo::CGCS2000, 114.0, 38500000.0, 0.0, 1.0)},
      {"epsg-4547.gdal", Pro(Geo::CGCS2000, 114.0, 500000.0, 0.0, 1.0)},
      {"epsg-32650.gdal", Pro(kFullWgs84, 117.0, 500000.0, 0.0, 0.9996)},
      {"epsg-32650.esri", Pro(kFullWgs84, 117.0, 500000.0, 0.0, 0.9996)},
      {"epsg-32750.gdal", Pro(kFullWgs84, 117.0, 500000.0, 10000000.0, 0.9996)},
      {"epsg-32750.esri", Pro(kFullWgs84, 117.0, 500000.0, 10000000.0, 0.9996)},
      {"epsg-2193.gdal", Pro(Geo::CGCS2000, 173.0, 1600000.0, 10000000.0, 0.9996)},
      {"epsg-2193.esri", Pro(Geo::CGCS2000, 173.0, 1600000.0, 10000000.0, 0.9996)},
      // The latitude of origin, 49 degrees, is not read.
      {"epsg-27700.gdal", Pro(kAiry, -2.0, 400000.0, -100000.0, 0.9996012717)},
      {"epsg-27700.esri", Pro(kAiry, -2.0, 400000.0, -100000.0, 0.9996012717)},
  };
  for (const Accepted& c : cases) {
    Pro by_ansi;
    Pro by_wide;
    EXPECT_EQ(ReadWkt(by_ansi, Load(c.name).c_str()), "accepted") << c.name;
    EXPECT_EQ(ReadWideWkt(by_wide, Load(c.name).c_str()), "accepted") << c.name;
    EXPECT_TRUE(SameBits(by_ansi, c.system)) << c.name;
    EXPECT_TRUE(SameBits(by_wide, c.system)) << c.name;
  }
}

TEST(SoftwareWkt, OtherProjectedTextsAreRefusedByTheirProjection) {
  const struct {
    const char* name;
    std::string message;
  } cases[] = {
      // One vendor names the same projection differently.
      {"epsg-2327.esri", Formatted(messages::kWrongProjection, "Gauss_Kruger")},
      {"epsg-2362.esri", Formatted(messages::kWrongProjection, "Gauss_Kruger")},
      {"epsg-2414.esri", Formatted(messages::kWrongProjection, "Gauss_Kruger")},
      {"epsg-2432.esri", Formatted(messages::kWrongProjection, "Gauss_Kruger")},
      {"epsg-4526.esri", Formatted(messages::kWrongProjection, "Gauss_Kruger")},
      {"epsg-4547.esri", Formatted(messages::kWrongProjection, "Gauss_Kruger")},
      {"epsg-3395.gdal", Formatted(messages::kWrongProjection, "Mercator_1SP")},
      {"epsg-3395.esri", Formatted(messages::kWrongProjection, "Mercator")},
      {"epsg-3857.gdal", Formatted(messages::kWrongProjection, "Mercator_1SP")},
      {"epsg-3857.esri", Formatted(messages::kWrongProjection, "Mercator_Auxiliary_Sphere")},
      {"epsg-4326.gdal", messages::kNoProjection},
      {"epsg-4490.esri", messages::kNoProjection},
      {"epsg-4214.gdal", messages::kNoProjection},
      {"epsg-4610.esri", messages::kNoProjection},
      {"epsg-4807.gdal", messages::kNoProjection},
      {"epsg-4326.wkt2", messages::kNoSpheroid},
  };
  for (const auto& c : cases) {
    Pro system;
    EXPECT_EQ(ReadWkt(system, Load(c.name).c_str()), c.message) << c.name;
  }
}

TEST(SoftwareWkt, NewerNotationIsRefused) {
  Geo system;
  EXPECT_EQ(ReadWkt(system, Load("epsg-4326.wkt2").c_str()), messages::kNoSpheroid);
  EXPECT_TRUE(SameBits(system, Geo()));
}

// What a surveyor gains: the text of the software and the code give one system, but for the zone
// in front of the false easting and the full flattening of WGS 84.
TEST(SoftwareWkt, CodesAndTextsAgreeWhereTheyShould) {
  for (const int code : {2432, 4547}) {
    Pro by_code;
    auto type = static_cast<Pro::EPCSType>(0);
    ASSERT_TRUE(by_code.setByEPSGCode(code, type));
    Pro by_text;
    ASSERT_EQ(ReadWkt(by_text, Load("epsg-" + std::to_string(code) + ".gdal").c_str()), "accepted");
    // 2432 deliberately has the ellipsoid of CGCS2000.
    EXPECT_EQ(by_code == by_text, code != 2432) << code;
    EXPECT_EQ(by_code.GetCentralMeridian(), by_text.GetCentralMeridian()) << code;
  }
}

}  // namespace
}  // namespace geo_test
