// SPDX-License-Identifier: MIT
// Every code of the official table against PROJ and its EPSG database: parameters, and points
// projected by both.
#include <quarnfc/ext/official_systems.h>

#include <gtest/gtest.h>
#include <proj.h>

#include <cmath>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace quarnfc::ext {
namespace {

struct DestroyPj {
  void operator()(PJ* object) const { proj_destroy(object); }
};
using OwnedPj = std::unique_ptr<PJ, DestroyPj>;

OwnedPj Create(int code) {
  return OwnedPj(proj_create(PJ_DEFAULT_CTX, ("EPSG:" + std::to_string(code)).c_str()));
}

std::vector<int> AllCodes() {
  std::vector<int> codes;
  for (int code = 2000; code < 33000; ++code) {
    if (FindOfficialSystem(code).has_value()) codes.push_back(code);
  }
  return codes;
}

double Parameter(const PJ* operation, const char* name) {
  const int index = proj_coordoperation_get_param_index(PJ_DEFAULT_CTX, operation, name);
  double value = std::nan("");
  proj_coordoperation_get_param(PJ_DEFAULT_CTX, operation, index, nullptr, nullptr, nullptr, &value,
                                nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
  return value;
}

void ExpectSameEllipsoid(const OfficialSystem& system, const PJ* peer) {
  const OwnedPj ellipsoid(proj_get_ellipsoid(PJ_DEFAULT_CTX, peer));
  ASSERT_NE(ellipsoid, nullptr) << system.code;
  double axis = 0, inverse_flattening = 0;
  proj_ellipsoid_get_parameters(PJ_DEFAULT_CTX, ellipsoid.get(), &axis, nullptr, nullptr,
                                &inverse_flattening);
  EXPECT_EQ(system.ellipsoid.semi_major_axis, axis) << system.code;
  EXPECT_EQ(system.ellipsoid.inverse_flattening, inverse_flattening) << system.code;
}

TEST(OfficialSystemsPeer, EveryCodeHasTheParametersOfTheDatabase) {
  const std::vector<int> codes = AllCodes();
  EXPECT_EQ(codes.size(), 4u + 1u + 6u * 11u + 6u * 21u + 120u);
  for (const int code : codes) {
    const OfficialSystem system = *FindOfficialSystem(code);
    const OwnedPj peer = Create(code);
    ASSERT_NE(peer, nullptr) << code;
    ExpectSameEllipsoid(system, peer.get());
    if (system.kind != SystemKind::kTransverseMercator) continue;
    const OwnedPj operation(proj_crs_get_coordoperation(PJ_DEFAULT_CTX, peer.get()));
    const TransverseMercatorParameters& own = system.parameters;
    EXPECT_EQ(own.central_meridian, Parameter(operation.get(), "Longitude of natural origin"));
    EXPECT_EQ(own.latitude_of_origin, Parameter(operation.get(), "Latitude of natural origin"));
    EXPECT_EQ(own.false_easting, Parameter(operation.get(), "False easting")) << code;
    EXPECT_EQ(own.false_northing, Parameter(operation.get(), "False northing")) << code;
    EXPECT_EQ(own.scale_factor, Parameter(operation.get(), "Scale factor at natural origin"));
  }
}

TEST(OfficialSystemsPeer, PointsOfEveryCodeAreProjectedToTheMicrometre) {
  for (const int code : AllCodes()) {
    const OfficialSystem system = *FindOfficialSystem(code);
    if (system.kind != SystemKind::kTransverseMercator) continue;
    const OwnedPj peer = Create(code);
    const OwnedPj base(proj_crs_get_geodetic_crs(PJ_DEFAULT_CTX, peer.get()));
    const OwnedPj raw(
        proj_create_crs_to_crs_from_pj(PJ_DEFAULT_CTX, base.get(), peer.get(), nullptr, nullptr));
    const OwnedPj convert(proj_normalize_for_visualization(PJ_DEFAULT_CTX, raw.get()));
    ASSERT_NE(convert, nullptr) << code;
    const TransverseMercator projection = system.Projection();
    for (const double lat : {-41.3, 0.0, 18.5, 39.9, 53.0}) {
      for (const double offset : {-3.0, -1.2, 0.0, 0.7, 3.0}) {
        const double lon = system.parameters.central_meridian + offset;
        if (std::fabs(lon) > 180.0) continue;
        const PJ_COORD expected =
            proj_trans(convert.get(), PJ_FWD, proj_coord(lon, lat, 0, HUGE_VAL));
        const EastNorth own = projection.Forward({lon, lat});
        EXPECT_NEAR(own.east, expected.xy.x, 1e-6) << code << ' ' << lon << ' ' << lat;
        EXPECT_NEAR(own.north, expected.xy.y, 1e-6) << code << ' ' << lon << ' ' << lat;
      }
    }
  }
}

}  // namespace
}  // namespace quarnfc::ext
