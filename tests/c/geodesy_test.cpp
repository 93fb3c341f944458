// SPDX-License-Identifier: MIT
// Coordinate systems through the flat C interface: the same numbers as the classes.
#include <gtest/gtest.h>

#include <quarnfc/c/geodesy.h>
#include <quarnfc/projected.h>
#include <quarnfc/web_mercator.h>

#include <string>
#include <vector>

#include "tests/c/handles.h"
#include "tests/c/results.h"

namespace {

using c_results::Error;
using c_results::Geographic;
using c_results::Projected;
using c_results::Taken;

const std::vector<double> kLonLat = {114.5, 30.25, 113.0, 22.5, 115.499, 45.0};

}  // namespace

TEST(CInterfaceGeodesy, KnowsTheSystemsOfTheClass) {
  struct Case {
    int number;
    const CQNGeoCoordinateSystem& system;
  };
  const Case cases[] = {{QNC_BEIJING54, CQNGeoCoordinateSystem::Beijing54},
                        {QNC_XIAN80, CQNGeoCoordinateSystem::XiAn80},
                        {QNC_CGCS2000, CQNGeoCoordinateSystem::CGCS2000},
                        {QNC_WGS84, CQNGeoCoordinateSystem::WGS84}};
  for (const Case& c : cases) {
    const Geographic system(qncGeographicKnown(c.number, nullptr));
    double axis = 0;
    double flattening = 0;
    EXPECT_EQ(qncGeographicEllipsoid(system.get(), &axis, &flattening), 1);
    EXPECT_EQ(axis, c.system.GetSemiMajorAxis());
    EXPECT_EQ(flattening, c.system.GetInverseFlattening());
    EXPECT_EQ(Taken(qncGeographicWkt(system.get(), nullptr)), Taken(c.system.CreateWKT()));
  }
  Error error;
  EXPECT_EQ(qncGeographicKnown(5, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: unknown coordinate system");
}

TEST(CInterfaceGeodesy, ProjectsWholeArraysLikeTheClass) {
  const Projected system(qncProjectedFromEpsg(4547, nullptr));
  ASSERT_NE(system, nullptr);
  CQNProCoordinateSystem expected;
  CQNProCoordinateSystem::EPCSType type{};
  ASSERT_TRUE(expected.setByEPSGCode(4547, type));

  std::vector<double> points = kLonLat;
  EXPECT_EQ(qncProject(system.get(), points.data(), points.data(), points.size() / 2), 1);
  for (std::size_t i = 0; i < points.size(); i += 2) {
    double east = 0;
    double north = 0;
    CQNProCoordinateSystem::GeoToGauss(kLonLat[i], kLonLat[i + 1], east, north, expected);
    EXPECT_EQ(points[i], east);
    EXPECT_EQ(points[i + 1], north);
  }
  std::vector<double> back(points.size());
  EXPECT_EQ(qncUnproject(system.get(), points.data(), back.data(), back.size() / 2), 1);
  for (std::size_t i = 0; i < back.size(); ++i) EXPECT_NEAR(back[i], kLonLat[i], 1e-8);
}

TEST(CInterfaceGeodesy, ConvertsEarthFixedAndWebMercatorArrays) {
  const Geographic system(qncGeographicKnown(QNC_CGCS2000, nullptr));
  std::vector<double> points = {114.5, 30.25, 100, -70, -33, 5};
  const std::vector<double> start = points;
  EXPECT_EQ(qncGeographicToEarthFixed(system.get(), points.data(), points.data(), 2), 1);
  double x = 0;
  double y = 0;
  double z = 0;
  CQNGeoCoordinateSystem::LonLat2ECI(-70, -33, 5, x, y, z, CQNGeoCoordinateSystem::CGCS2000);
  EXPECT_EQ(points[3], x);
  EXPECT_EQ(points[4], y);
  EXPECT_EQ(points[5], z);
  EXPECT_EQ(qncEarthFixedToGeographic(system.get(), points.data(), points.data(), 2), 1);
  for (std::size_t i = 0; i < points.size(); ++i) EXPECT_NEAR(points[i], start[i], 1e-5);

  points = kLonLat;
  EXPECT_EQ(qncProjectWebMercator(points.data(), points.data(), 3), 1);
  QNWebMercator::LonLat2WebMercator(kLonLat[4], kLonLat[5], x, y);
  EXPECT_EQ(points[4], x);
  EXPECT_EQ(points[5], y);
  EXPECT_EQ(qncUnprojectWebMercator(points.data(), points.data(), 3), 1);
  for (std::size_t i = 0; i < points.size(); ++i) EXPECT_NEAR(points[i], kLonLat[i], 1e-9);
}

TEST(CInterfaceGeodesy, TextsGiveTheSystemsThatWroteThem) {
  const Geographic ellipsoid(qncGeographicNew(6378245, 298.3, nullptr));
  const Projected system(qncProjectedNew(ellipsoid.get(), 117, 500000, 10, 0.9999, nullptr));
  const std::string wkt = Taken(qncProjectedWkt(system.get(), nullptr));
  const Projected read(qncProjectedFromWkt(wkt.c_str(), nullptr));
  double meridian = 0;
  double easting = 0;
  double northing = 0;
  double scale = 0;
  EXPECT_EQ(qncProjectedParameters(read.get(), &meridian, &easting, &northing, &scale), 1);
  EXPECT_EQ(meridian, 117);
  EXPECT_EQ(easting, 500000);
  EXPECT_EQ(northing, 10);
  EXPECT_EQ(scale, 0.9999);
  const Geographic base(qncProjectedGeographic(read.get(), nullptr));
  const Geographic same(qncGeographicFromWkt(wkt.c_str(), nullptr));
  EXPECT_EQ(Taken(qncGeographicWkt(base.get(), nullptr)),
            Taken(qncGeographicWkt(same.get(), nullptr)));
}

TEST(CInterfaceGeodesy, UnknownSystemsAreErrors) {
  Error error;
  EXPECT_EQ(qncProjectedFromEpsg(4326, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: unknown EPSG code");
  EXPECT_EQ(qncProjectedFromUtmZone(61, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: no UTM zone");
  EXPECT_EQ(qncProjectedFromWkt("nonsense", error.Out()), nullptr);
  EXPECT_EQ(error.Text().substr(0, 3), "5: ");
  EXPECT_EQ(qncGeographicFromWkt(nullptr, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  EXPECT_NE(Projected(qncProjectedFromUtmZone(-50, nullptr)), nullptr);
}

TEST(CInterfaceGeodesy, NullArgumentsConvertNothing) {
  const Projected system(qncProjectedFromUtmZone(50, nullptr));
  double points[2] = {1, 2};
  EXPECT_EQ(qncProject(nullptr, points, points, 1), 0);
  EXPECT_EQ(qncProject(system.get(), nullptr, points, 1), 0);
  EXPECT_EQ(qncUnproject(system.get(), points, nullptr, 1), 0);
  EXPECT_EQ(qncGeographicToEarthFixed(nullptr, points, points, 0), 0);
  EXPECT_EQ(qncEarthFixedToGeographic(nullptr, points, points, 0), 0);
  EXPECT_EQ(qncGeographicEllipsoid(nullptr, points, nullptr), 0);
  EXPECT_EQ(qncProjectedParameters(nullptr, points, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(qncProjectWebMercator(nullptr, points, 1), 0);
  EXPECT_EQ(points[0], 1);
  EXPECT_EQ(qncProjectedNew(nullptr, 0, 0, 0, 1, nullptr), nullptr);
  qncGeographicFree(nullptr);
  qncProjectedFree(nullptr);
}
