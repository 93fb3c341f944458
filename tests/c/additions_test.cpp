// SPDX-License-Identifier: MIT
// Zones, the exact projection, datum shifts and digests through the flat C interface: what the
// additions and the digest streams give.
#include <gtest/gtest.h>

#include <quarnfc/c/codec.h>
#include <quarnfc/c/digest.h>
#include <quarnfc/c/transverse_mercator.h>
#include <quarnfc/c/zones.h>
#include <quarnfc/ext/datum_shift.h>
#include <quarnfc/ext/official_systems.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "tests/c/handles.h"
#include "tests/c/results.h"

namespace {

namespace ext = quarnfc::ext;
using c_results::Error;
using c_results::Geographic;
using c_results::Taken;
using c_results::Transverse;

struct FreeDigest {
  void operator()(QncDigest* digest) const { qncDigestFree(digest); }
};
using Digest = std::unique_ptr<QncDigest, FreeDigest>;

}  // namespace

TEST(CInterfaceZones, NumbersAndMeridiansAreThoseOfTheAdditions) {
  EXPECT_EQ(qncGaussZone(114.3055, 3), 38);
  EXPECT_EQ(qncGaussZone(114.3055, 6), 20);
  EXPECT_EQ(qncGaussZone(114.3055, 4), 0);
  EXPECT_EQ(qncGaussZone(std::nan(""), 3), 0);
  EXPECT_EQ(qncCentralMeridian(38, 3), 114.0);
  EXPECT_EQ(qncCentralMeridian(20, 6), 117.0);
  EXPECT_TRUE(std::isnan(qncCentralMeridian(0, 3)));
  EXPECT_TRUE(std::isnan(qncCentralMeridian(38, 5)));
  EXPECT_EQ(qncUtmZone(5.0, 60.0), 32);
  EXPECT_EQ(qncUtmZone(151.2, -33.9), -56);
  EXPECT_EQ(qncUtmZone(0.0, 84.5), 0);
}

TEST(CInterfaceZones, EastingsAreSplitIntoAnyOfTheOutputs) {
  EXPECT_EQ(qncPrefixEasting(38, 529283.25), 38529283.25);
  int zone = 0;
  int width = 0;
  double easting = 0;
  EXPECT_EQ(qncSplitEasting(38529283.25, &zone, &easting, &width), 1);
  EXPECT_EQ(zone, 38);
  EXPECT_EQ(easting, 529283.25);
  EXPECT_EQ(width, 3);
  EXPECT_EQ(qncSplitEasting(20529283.25, nullptr, nullptr, &width), 1);
  EXPECT_EQ(width, 6);
  zone = 7;
  EXPECT_EQ(qncSplitEasting(529283.25, &zone, nullptr, nullptr), 0);
  EXPECT_EQ(zone, 7);
}

TEST(CInterfaceTransverseMercator, OfficialSystemsGiveTheNumbersOfTheAdditions) {
  const std::vector<double> from = {114.3055, 30.5928, 113.0, 22.5, 115.4999, 45.0};
  for (const int code : {4526, 4547, 2362, 21418, 32650, 32750}) {
    const Transverse system(qncTransverseMercatorFromEpsg(code, nullptr));
    ASSERT_NE(system, nullptr) << code;
    const ext::TransverseMercator expected = ext::FindOfficialSystem(code)->Projection();
    std::vector<double> to(from.size()), back(from.size()), scale(from.size());
    EXPECT_EQ(qncTransverseMercatorForward(system.get(), from.data(), to.data(), 3), 1);
    EXPECT_EQ(qncTransverseMercatorInverse(system.get(), to.data(), back.data(), 3), 1);
    EXPECT_EQ(qncTransverseMercatorScale(system.get(), from.data(), scale.data(), 3), 1);
    for (std::size_t i = 0; i < from.size(); i += 2) {
      const ext::EastNorth plane = expected.Forward({from[i], from[i + 1]});
      EXPECT_EQ(to[i], plane.east);
      EXPECT_EQ(to[i + 1], plane.north);
      EXPECT_NEAR(back[i], from[i], 1e-12);
      EXPECT_NEAR(back[i + 1], from[i + 1], 1e-12);
      EXPECT_EQ(scale[i], expected.ScaleAt({from[i], from[i + 1]}).factor);
      EXPECT_EQ(scale[i + 1], expected.ScaleAt({from[i], from[i + 1]}).convergence);
    }
  }
}

TEST(CInterfaceTransverseMercator, ParametersOfTheHostComeBack) {
  const Geographic ellipsoid(qncGeographicFromEpsg(4490, nullptr));
  double axis = 0;
  double flattening = 0;
  EXPECT_EQ(qncGeographicEllipsoid(ellipsoid.get(), &axis, &flattening), 1);
  EXPECT_EQ(axis, 6378137.0);
  EXPECT_EQ(flattening, 298.257222101);
  const Transverse system(
      qncTransverseMercatorNew(ellipsoid.get(), 113.5, 1.0, 2.0, 3.0, 0.9999, nullptr));
  double values[5] = {};
  EXPECT_EQ(qncTransverseMercatorParameters(system.get(), &values[0], &values[1], &values[2],
                                            &values[3], &values[4]),
            1);
  EXPECT_EQ((std::vector<double>(values, values + 5)),
            (std::vector<double>{113.5, 1.0, 2.0, 3.0, 0.9999}));
}

TEST(CInterfaceTransverseMercator, RefusesWhatIsNoPlaneSystem) {
  Error error;
  EXPECT_EQ(qncTransverseMercatorFromEpsg(4490, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: the EPSG code is no transverse Mercator system");
  EXPECT_EQ(qncTransverseMercatorFromEpsg(1, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: unknown EPSG code");
  EXPECT_EQ(qncGeographicFromEpsg(1, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: unknown EPSG code");
  EXPECT_EQ(qncTransverseMercatorNew(nullptr, 0, 0, 0, 0, 1, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  double point[2] = {1, 2};
  EXPECT_EQ(qncTransverseMercatorForward(nullptr, point, point, 1), 0);
  EXPECT_EQ(point[0], 1);
}

TEST(CInterfaceDatumShift, ShiftsWholeArraysThereAndExactlyBack) {
  const Geographic source(qncGeographicFromEpsg(4214, nullptr));
  const Geographic target(qncGeographicFromEpsg(4490, nullptr));
  const double parameters[7] = {12.5, -107.1, -62.3, 0.5, 1.2, -0.9, 2.3};
  const double from[6] = {114.3, 30.6, 20.0, 87.6, 43.8, 918.0};
  for (const int convention : {QNC_POSITION_VECTOR, QNC_COORDINATE_FRAME}) {
    const ext::Helmert7 shift{{12.5, -107.1, -62.3},
                              {0.5, 1.2, -0.9},
                              2.3,
                              convention == QNC_POSITION_VECTOR
                                  ? ext::RotationConvention::kPositionVector
                                  : ext::RotationConvention::kCoordinateFrame};
    double points[6];
    ASSERT_EQ(qncShiftDatum(source.get(), target.get(), parameters, convention, from, points, 2),
              1);
    const ext::LonLatHeight expected =
        ext::ShiftDatum(ext::kKrassowsky1940, {from[3], from[4], from[5]}, shift, ext::kCgcs2000);
    EXPECT_EQ(points[3], expected.lon);
    EXPECT_EQ(points[4], expected.lat);
    EXPECT_EQ(points[5], expected.height);
    ASSERT_EQ(
        qncShiftDatumBack(target.get(), source.get(), parameters, convention, points, points, 2),
        1);
    for (int i = 0; i < 6; ++i) EXPECT_NEAR(points[i], from[i], i % 3 == 2 ? 1e-7 : 1e-12);
  }
}

TEST(CInterfaceDatumShift, UnknownConventionAndNullChangeNothing) {
  const Geographic system(qncGeographicFromEpsg(4490, nullptr));
  const double parameters[7] = {};
  double point[3] = {1, 2, 3};
  EXPECT_EQ(qncShiftDatum(system.get(), system.get(), parameters, 0, point, point, 1), 0);
  EXPECT_EQ(qncShiftDatum(system.get(), nullptr, parameters, 1, point, point, 1), 0);
  EXPECT_EQ(qncShiftDatum(system.get(), system.get(), nullptr, 1, point, point, 1), 0);
  EXPECT_EQ(point[0], 1);
}

TEST(CInterfaceDigest, PiecesMakeTheDigestOfTheirMessage) {
  struct Case {
    int kind;
    const char* digest;
  };
  // RFC 1321; FIPS 180-4; RFC 4231, test case 2; the packed MD5 of 7-bit text is MD5.
  const Case cases[] = {
      {QNC_DIGEST_MD5, "900150983cd24fb0d6963f7d28e17f72"},
      {QNC_DIGEST_SHA256, "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
      {QNC_DIGEST_PACKED_MD5, "900150983cd24fb0d6963f7d28e17f72"}};
  for (const Case& c : cases) {
    const Digest digest(qncDigestNew(c.kind, nullptr, 0, nullptr));
    for (int message = 0; message < 2; ++message) {
      qncDigestUpdate(digest.get(), "a", 1);
      qncDigestUpdate(digest.get(), nullptr, 5);
      qncDigestUpdate(digest.get(), "bc", 2);
      EXPECT_EQ(Taken(qncDigestFinish(digest.get(), nullptr)), c.digest);
    }
  }
  const Digest hmac(qncDigestNew(QNC_DIGEST_HMAC_SHA256, "Jefe", 4, nullptr));
  qncDigestUpdate(hmac.get(), "what do ya want ", 16);
  qncDigestUpdate(hmac.get(), "for nothing?", 12);
  EXPECT_EQ(Taken(qncDigestFinish(hmac.get(), nullptr)),
            "5bdcc146bf60754e6a042426089575c75a003f089d2739839dec58b964ec3843");
}

TEST(CInterfaceDigest, ChecksumIsTheTextOfTheOneCall) {
  const Digest digest(qncDigestNew(QNC_DIGEST_CRC64, nullptr, 0, nullptr));
  qncDigestUpdate(digest.get(), "12345", 5);
  qncDigestUpdate(digest.get(), "6789", 4);
  EXPECT_EQ(Taken(qncDigestFinish(digest.get(), nullptr)),
            Taken(qncCrc64("123456789", 9, nullptr)));
}

TEST(CInterfaceDigest, RefusesUnknownKindsAndNull) {
  Error error;
  EXPECT_EQ(qncDigestNew(6, nullptr, 0, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: unknown kind of digest");
  EXPECT_EQ(qncDigestFinish(nullptr, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  qncDigestUpdate(nullptr, "a", 1);
  qncDigestFree(nullptr);
}
