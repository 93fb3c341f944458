// SPDX-License-Identifier: MIT
// The projection against GeographicLib's exact transverse Mercator (C. F. F. Karney, "Transverse
// Mercator with an accuracy of a few nanometers", J. Geodesy 85, 2011), which evaluates the
// projection by elliptic functions. The bounds are the terms that the series leave out.
#include <gtest/gtest.h>

#include <GeographicLib/TransverseMercatorExact.hpp>
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "tests/geo/geo_support.h"
#include "tests/geo/reference_transverse_mercator.h"
#include "tests/geo/series_bound.h"

namespace geo_test {
namespace {

constexpr double kDegree = 3.14159265358979323846 / 180.0;

struct Peer {
  const char* name;
  const Geo* geo;
};

const Peer kPeers[] = {{"Beijing54", &Geo::Beijing54},
                       {"XiAn80", &Geo::XiAn80},
                       {"WGS84", &Geo::WGS84},
                       {"CGCS2000", &Geo::CGCS2000}};

GeographicLib::TransverseMercatorExact Exact(const Geo& geo, double scale) {
  return GeographicLib::TransverseMercatorExact(geo.GetSemiMajorAxis(),
                                                1.0 / geo.GetInverseFlattening(), scale);
}

struct Difference {
  double forward;  // metres
  double inverse;  // metres on the ground
};

// Checks one point against the bounds and returns the differences.
Difference Compare(const Peer& peer, double lon, double lat) {
  const GeographicLib::TransverseMercatorExact exact = Exact(*peer.geo, 1.0);
  const Pro system(*peer.geo, 0.0, 0.0, 0.0, 1.0);
  const SeriesBound bound(*peer.geo, lon, lat);
  double east;
  double north;
  exact.Forward(0.0, lat, lon, east, north);
  double own_east;
  double own_north;
  Pro::GeoToGauss(lon, lat, own_east, own_north, system);
  EXPECT_LE(std::fabs(own_east - east), bound.ForwardEast()) << peer.name << lon << ' ' << lat;
  EXPECT_LE(std::fabs(own_north - north), bound.ForwardNorth()) << peer.name << lon << ' ' << lat;
  double own_lon;
  double own_lat;
  Pro::GaussToGeo(east, north, own_lon, own_lat, system);
  const double radius = peer.geo->GetSemiMajorAxis() * kDegree;
  const double ground_east = (own_lon - lon) * radius * std::cos(lat * kDegree);
  const double ground_north = (own_lat - lat) * radius;
  EXPECT_LE(std::fabs(ground_east), bound.InverseEast()) << peer.name << lon << ' ' << lat;
  EXPECT_LE(std::fabs(ground_north), bound.InverseNorth()) << peer.name << lon << ' ' << lat;
  return {std::hypot(own_east - east, own_north - north), std::hypot(ground_east, ground_north)};
}

TEST(TransverseMercatorPeer, DifferencesStayBelowTheOmittedTerms) {
  for (const Peer& peer : kPeers) {
    for (double lon = -6.0; lon <= 6.0; lon += 0.125) {
      for (double lat = -84.0; lat <= 84.0; lat += 1.5) Compare(peer, lon, lat);
    }
  }
}

TEST(TransverseMercatorPeer, TableOfDifferencesOnCgcs2000) {
  std::printf("Largest difference from the exact projection in millimetres, there / back\n");
  std::printf("%9s", "latitude");
  const double offsets[] = {0.0, 0.5, 1.0, 1.5, 2.0, 2.5, 3.0, 3.5, 4.5, 6.0};
  for (const double lon : offsets) std::printf("%16.1f deg", lon);
  std::printf("\n");
  for (int lat = 0; lat <= 80; lat += 10) {
    std::printf("%9d", lat);
    for (const double lon : offsets) {
      const Difference d = Compare(kPeers[3], lon, lat);
      std::printf("%10.3f/%9.3f", d.forward * 1000.0, d.inverse * 1000.0);
    }
    std::printf("\n");
  }
}

TEST(TransverseMercatorPeer, ThreeDegreeZonesAgreeToTwoMillimetres) {
  Difference worst = {0.0, 0.0};
  for (double lon = 0.0; lon <= 1.5; lon += 0.125) {
    for (double lat = 0.0; lat <= 84.0; lat += 0.5) {
      const Difference d = Compare(kPeers[3], lon, lat);
      worst.forward = std::max(worst.forward, d.forward);
      worst.inverse = std::max(worst.inverse, d.inverse);
    }
  }
  std::printf("3-degree zones: at most %.4f mm there, %.4f mm back\n", worst.forward * 1000.0,
              worst.inverse * 1000.0);
  EXPECT_LT(worst.forward, 0.002);
  EXPECT_LT(worst.inverse, 0.002);
}

// The reference that the tests use where GeographicLib is not at hand.
TEST(TransverseMercatorPeer, KruegerReferenceAgreesToNanometres) {
  for (const Peer& peer : kPeers) {
    const GeographicLib::TransverseMercatorExact exact = Exact(*peer.geo, 1.0);
    const ReferenceTransverseMercator reference(peer.geo->GetSemiMajorAxis(),
                                                peer.geo->GetInverseFlattening());
    for (double lon = -15.0; lon <= 15.0; lon += 1.0) {
      for (double lat = -84.0; lat <= 84.0; lat += 4.0) {
        double east;
        double north;
        exact.Forward(0.0, lat, lon, east, north);
        double own_east;
        double own_north;
        reference.Forward(lon, lat, own_east, own_north);
        EXPECT_NEAR(own_east, east, 1e-8) << lon << ' ' << lat;
        EXPECT_NEAR(own_north, north, 2e-8) << lon << ' ' << lat;
      }
    }
  }
}

}  // namespace
}  // namespace geo_test
