// SPDX-License-Identifier: MIT
// Best zones, angles, height planes, similarities and the estimation of parameters through the flat
// C interface: what the additions give.
#include <gtest/gtest.h>

#include <quarnfc/c/angles.h>
#include <quarnfc/c/height_plane.h>
#include <quarnfc/c/parameter_estimation.h>
#include <quarnfc/c/zones.h>
#include <quarnfc/ext/height_plane.h>
#include <quarnfc/ext/parameter_estimation.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

#include "tests/c/handles.h"
#include "tests/c/results.h"

namespace {

namespace ext = quarnfc::ext;
using c_results::Error;
using c_results::Geographic;
using c_results::Taken;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
const double kNan = std::nan("");

// Four points of a town, Earth-fixed, and where seven parameters lead them, with centimetres added.
const std::vector<double> kFrom = {-2258208.2, 5008500.1,  3230012.3,  -2258908.8,
                                   5007200.4,  3231512.6,  -2256100.5, 5009900.7,
                                   3229012.9,  -2259999.0, 5006800.2,  3231000.8};
const std::vector<double> kNoise = {0.01,  -0.02, 0.00, 0.02, 0.01, -0.01,
                                    -0.01, 0.00,  0.02, 0.00, 0.01, -0.02};
constexpr double kSeven[7] = {12.5, -107.1, -62.3, 0.5, 1.2, -0.9, 2.3};

ext::RotationConvention ConventionOf(int convention) {
  return convention == QNC_POSITION_VECTOR ? ext::RotationConvention::kPositionVector
                                           : ext::RotationConvention::kCoordinateFrame;
}

std::vector<double> Shifted(int convention) {
  const ext::Helmert7 shift{{kSeven[0], kSeven[1], kSeven[2]},
                            {kSeven[3], kSeven[4], kSeven[5]},
                            kSeven[6],
                            ConventionOf(convention)};
  std::vector<double> to;
  for (std::size_t i = 0; i < kFrom.size(); i += 3) {
    const ext::Cartesian moved = ext::Apply(shift, {kFrom[i], kFrom[i + 1], kFrom[i + 2]});
    to.insert(to.end(), {moved.x + kNoise[i], moved.y + kNoise[i + 1], moved.z + kNoise[i + 2]});
  }
  return to;
}

std::vector<ext::CommonPoint> CommonPoints(const std::vector<double>& to) {
  std::vector<ext::CommonPoint> points;
  for (std::size_t i = 0; i < to.size(); i += 3) {
    points.push_back({{kFrom[i], kFrom[i + 1], kFrom[i + 2]}, {to[i], to[i + 1], to[i + 2]}});
  }
  return points;
}

}  // namespace

TEST(CInterfaceZones, BestZoneIsTheOneOfTheMiddle) {
  EXPECT_EQ(qncBestZone(113.0, 114.6, 3), 38);
  EXPECT_EQ(qncBestZone(108.0, 114.0, 6), 19);
  EXPECT_EQ(qncBestZone(179.0, -178.0, 6), 31);
  EXPECT_EQ(qncBestZone(113.0, 114.6, 4), 0);
  EXPECT_EQ(qncBestZone(kNan, 114.6, 3), 0);
}

TEST(CInterfaceAngles, TextIsReadInEveryForm) {
  struct Case {
    const char* text;
    double angle;
  };
  const Case cases[] = {{"114d03'27.5\"E", 114 + 3 / 60.0 + 27.5 / 3600},
                        {"S 30\xC2\xB0 30\xE2\x80\xB2", -30.5},
                        {"-114:30:00", -114.5},
                        {"114.0576", 114.0576}};
  for (const Case& c : cases) {
    double angle = 0;
    EXPECT_EQ(qncReadAngle(c.text, &angle), 1) << c.text;
    EXPECT_NEAR(angle, c.angle, 1e-13) << c.text;
  }
}

TEST(CInterfaceAngles, WhatIsNoAngleChangesNothing) {
  for (const char* text : {"", "114d60'", "-114W", "north", static_cast<const char*>(nullptr)}) {
    double angle = 7;
    EXPECT_EQ(qncReadAngle(text, &angle), 0);
    EXPECT_EQ(angle, 7);
  }
  EXPECT_EQ(qncReadAngle("114", nullptr), 0);
}

TEST(CInterfaceAngles, TextHasTheDecimalsAndTheSignThatTheHostWants) {
  EXPECT_EQ(Taken(qncWriteAngle(114.0576, 2, nullptr, nullptr)), "114d03'27.36\"");
  EXPECT_EQ(Taken(qncWriteAngle(-0.5, 0, "\xC2\xB0", nullptr)),
            "-0\xC2\xB0"
            "30'00\"");
  EXPECT_EQ(Taken(qncWriteAngle(1, -5, nullptr, nullptr)), "1d00'00\"");
  EXPECT_EQ(Taken(qncWriteAngle(1, 50, nullptr, nullptr)), "1d00'00.000000000\"");
  for (const double angle : {kNan, kInfinity, 1000001.0}) {
    Error error;
    EXPECT_EQ(qncWriteAngle(angle, 2, nullptr, error.Out()), nullptr);
    EXPECT_EQ(error.Text(), "87: Quarn: the angle is out of its range");
  }
}

TEST(CInterfaceAngles, PackedNumbersGoBothWays) {
  double angle = 0;
  EXPECT_EQ(qncFromPackedAngle(-114.032736, &angle), 1);
  EXPECT_NEAR(angle, -114.0576, 1e-12);
  EXPECT_EQ(qncToPackedAngle(angle), -114.032736);
  angle = 7;
  for (const double packed : {114.60, 114.0060, kNan, kInfinity}) {
    EXPECT_EQ(qncFromPackedAngle(packed, &angle), 0) << packed;
  }
  EXPECT_EQ(angle, 7);
  EXPECT_EQ(qncFromPackedAngle(114.3, nullptr), 0);
  EXPECT_TRUE(std::isnan(qncToPackedAngle(kInfinity)));
}

TEST(CInterfaceHeightPlane, NumbersAreThoseOfTheAdditions) {
  const Geographic system(qncGeographicFromEpsg(4490, nullptr));
  const double radius = qncMeanRadius(system.get(), 25.0);
  EXPECT_EQ(radius, ext::MeanRadius(ext::kCgcs2000, 25.0));
  EXPECT_TRUE(std::isnan(qncMeanRadius(nullptr, 25.0)));
  EXPECT_EQ(qncCombinedScale(1.00002, 1900, radius), ext::CombinedScale(1.00002, 1900, radius));
  EXPECT_EQ(qncDeformation(1.00002, 1900, radius), ext::Deformation(1.00002, 1900, radius));
  EXPECT_EQ(qncCompensationHeight(1900, 40000, radius),
            ext::CompensationHeight(1900, 40000, radius));
  EXPECT_EQ(qncCompensatedOffset(1900, 1774, radius), ext::CompensatedOffset(1900, 1774, radius));
  EXPECT_TRUE(std::isnan(qncCompensatedOffset(1774, 1900, radius)));
}

TEST(CInterfaceHeightPlane, RaisedEllipsoidKeepsItsFlattening) {
  const Geographic system(qncGeographicFromEpsg(4490, nullptr));
  const Geographic raised(qncGeographicRaised(system.get(), 1774, 25.0, nullptr));
  double axis = 0;
  double flattening = 0;
  ASSERT_EQ(qncGeographicEllipsoid(raised.get(), &axis, &flattening), 1);
  EXPECT_EQ(axis, ext::RaisedEllipsoid(ext::kCgcs2000, 1774, 25.0).semi_major_axis);
  EXPECT_EQ(flattening, 298.257222101);
  Error error;
  EXPECT_EQ(qncGeographicRaised(nullptr, 1774, 25.0, error.Out()), nullptr);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
}

TEST(CInterfaceSimilarity, MovesWholeArraysThereAndBackInPlace) {
  const double parameters[4] = {1000, -2000, 0.9, 0.1};
  const ext::PlaneSimilarity similarity{1000, -2000, 0.9, 0.1};
  double points[4] = {529283.25, 3400000.5, 1, 2};
  ASSERT_EQ(qncApplySimilarity(parameters, points, points, 2), 1);
  const ext::EastNorth expected = ext::Apply(similarity, {529283.25, 3400000.5});
  EXPECT_EQ(points[0], expected.east);
  EXPECT_EQ(points[1], expected.north);
  ASSERT_EQ(qncApplySimilarityBack(parameters, points, points, 2), 1);
  EXPECT_NEAR(points[0], 529283.25, 1e-8);
  EXPECT_NEAR(points[3], 2, 1e-8);
  const double before = points[0];
  EXPECT_EQ(qncApplySimilarity(nullptr, points, points, 2), 0);
  EXPECT_EQ(qncApplySimilarity(parameters, nullptr, points, 2), 0);
  EXPECT_EQ(qncApplySimilarityBack(parameters, points, nullptr, 2), 0);
  EXPECT_EQ(points[0], before);
}

TEST(CInterfaceSimilarity, EstimateIsThatOfTheAdditions) {
  const double from[8] = {0, 0, 1000, 0, 0, 1000, 900, 800};
  const double to[8] = {10, 20, 1010.02, 19.99, 10.01, 1020, 909.98, 820.03};
  std::vector<ext::CommonPlanePoint> points;
  for (int i = 0; i < 8; i += 2) points.push_back({{from[i], from[i + 1]}, {to[i], to[i + 1]}});
  const auto expected = ext::EstimateSimilarity(points);
  double parameters[4], residuals[8], deviation = 0;
  ASSERT_EQ(qncEstimateSimilarity(from, to, 4, parameters, residuals, &deviation, nullptr), 1);
  EXPECT_EQ(parameters[0], expected->parameters.east);
  EXPECT_EQ(parameters[1], expected->parameters.north);
  EXPECT_EQ(parameters[2], expected->parameters.a);
  EXPECT_EQ(parameters[3], expected->parameters.b);
  EXPECT_EQ(deviation, expected->standard_deviation);
  EXPECT_GT(deviation, 0.001);
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(residuals[2 * i], expected->residuals[i].east);
    EXPECT_EQ(residuals[2 * i + 1], expected->residuals[i].north);
  }
  double alone[4];
  EXPECT_EQ(qncEstimateSimilarity(from, to, 4, alone, nullptr, nullptr, nullptr), 1);
  EXPECT_EQ(alone[3], parameters[3]);
}

TEST(CInterfaceSimilarity, PointsThatDetermineNothingLeaveTheOutputsUntouched) {
  const double from[4] = {5, 5, 5, 5};
  const double to[4] = {1, 2, 3, 4};
  const double broken[4] = {0, 0, kNan, 1};
  double parameters[4] = {7, 7, 7, 7}, residuals[4] = {7, 7, 7, 7}, deviation = 7;
  Error error;
  const std::string reason = "5: Quarn: the points do not determine the parameters";
  EXPECT_EQ(qncEstimateSimilarity(from, to, 2, parameters, residuals, &deviation, error.Out()), 0);
  EXPECT_EQ(error.Text(), reason);
  EXPECT_EQ(qncEstimateSimilarity(to, from, 1, parameters, residuals, &deviation, error.Out()), 0);
  EXPECT_EQ(error.Text(), reason);
  EXPECT_EQ(qncEstimateSimilarity(broken, to, 2, parameters, nullptr, nullptr, error.Out()), 0);
  EXPECT_EQ(error.Text(), reason);
  EXPECT_EQ(qncEstimateSimilarity(from, to, 2, nullptr, nullptr, nullptr, error.Out()), 0);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  EXPECT_EQ(qncEstimateSimilarity(nullptr, to, 2, parameters, nullptr, nullptr, error.Out()), 0);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  for (const double value : {parameters[0], parameters[3], residuals[0], deviation}) {
    EXPECT_EQ(value, 7);
  }
}

TEST(CInterfaceHelmert, EstimateIsThatOfTheAdditions) {
  for (const int convention : {QNC_POSITION_VECTOR, QNC_COORDINATE_FRAME}) {
    const std::vector<double> to = Shifted(convention);
    const auto expected = ext::EstimateHelmert(CommonPoints(to), ConventionOf(convention));
    double seven[7], residuals[12], deviation = 0, deviations[7];
    ASSERT_EQ(qncEstimateHelmert(kFrom.data(), to.data(), 4, convention, seven, residuals,
                                 &deviation, deviations, nullptr),
              1);
    const ext::Helmert7& found = expected->parameters;
    EXPECT_EQ((std::vector<double>(seven, seven + 7)),
              (std::vector<double>{found.translation.x, found.translation.y, found.translation.z,
                                   found.rotation.x, found.rotation.y, found.rotation.z,
                                   found.scale_ppm}));
    EXPECT_EQ(deviation, expected->standard_deviation);
    EXPECT_GT(deviation, 0.005);
    EXPECT_LT(deviation, 0.05);
    EXPECT_EQ(
        (std::vector<double>(deviations, deviations + 7)),
        (std::vector<double>{expected->translation_deviation.x, expected->translation_deviation.y,
                             expected->translation_deviation.z, expected->rotation_deviation.x,
                             expected->rotation_deviation.y, expected->rotation_deviation.z,
                             expected->scale_deviation}));
    for (std::size_t i = 0; i < 4; ++i) {
      EXPECT_EQ(residuals[3 * i], expected->residuals[i].x);
      EXPECT_EQ(residuals[3 * i + 1], expected->residuals[i].y);
      EXPECT_EQ(residuals[3 * i + 2], expected->residuals[i].z);
    }
  }
}

TEST(CInterfaceHelmert, TheParametersLeadTheDatumShiftToTheGivenPoints) {
  const Geographic source(qncGeographicFromEpsg(4214, nullptr));
  const Geographic target(qncGeographicFromEpsg(4490, nullptr));
  const std::vector<double> to = Shifted(QNC_COORDINATE_FRAME);
  double seven[7], points[12], wanted[12];
  ASSERT_EQ(qncEstimateHelmert(kFrom.data(), to.data(), 4, QNC_COORDINATE_FRAME, seven, nullptr,
                               nullptr, nullptr, nullptr),
            1);
  ASSERT_EQ(qncEarthFixedToGeographic(source.get(), kFrom.data(), points, 4), 1);
  ASSERT_EQ(qncEarthFixedToGeographic(target.get(), to.data(), wanted, 4), 1);
  ASSERT_EQ(
      qncShiftDatum(source.get(), target.get(), seven, QNC_COORDINATE_FRAME, points, points, 4), 1);
  for (int i = 0; i < 12; ++i) EXPECT_NEAR(points[i], wanted[i], i % 3 == 2 ? 0.05 : 5e-7);
}

TEST(CInterfaceHelmert, RefusesWhatDeterminesNothing) {
  const std::vector<double> to = Shifted(QNC_POSITION_VECTOR);
  const double line[9] = {0, 0, 0, 1, 1, 1, 2, 2, 2};
  double seven[7] = {7};
  Error error;
  const auto estimate = [&](const double* from, size_t count, int convention) {
    return qncEstimateHelmert(from, to.data(), count, convention, seven, nullptr, nullptr, nullptr,
                              error.Out());
  };
  EXPECT_EQ(estimate(kFrom.data(), 2, QNC_POSITION_VECTOR), 0);
  EXPECT_EQ(error.Text(), "5: Quarn: the points do not determine the parameters");
  EXPECT_EQ(estimate(line, 3, QNC_POSITION_VECTOR), 0);
  EXPECT_EQ(error.Text(), "5: Quarn: the points do not determine the parameters");
  EXPECT_EQ(estimate(kFrom.data(), 4, 3), 0);
  EXPECT_EQ(error.Text(), "87: Quarn: unknown convention of rotations");
  EXPECT_EQ(estimate(nullptr, 4, QNC_POSITION_VECTOR), 0);
  EXPECT_EQ(error.Text(), "87: Quarn: an argument is null");
  EXPECT_EQ(seven[0], 7);
}
