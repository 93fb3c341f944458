// SPDX-License-Identifier: MIT
// Parameters from common points: what was put in comes out, with the residuals of what does not
// fit.
#include <quarnfc/ext/parameter_estimation.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace quarnfc::ext {
namespace {

std::vector<CommonPlanePoint> PlanePoints(const PlaneSimilarity& similarity) {
  std::vector<CommonPlanePoint> points;
  for (const EastNorth from : {EastNorth{500100.0, 3385000.0}, EastNorth{503200.0, 3386100.0},
                               EastNorth{501700.0, 3389400.0}, EastNorth{499000.0, 3387700.0}}) {
    points.push_back({from, Apply(similarity, from)});
  }
  return points;
}

TEST(ParameterEstimation, ASimilarityIsFoundAgain) {
  const PlaneSimilarity given{-1234.5, 678.9, 0.99998, 0.00321};
  const auto found = EstimateSimilarity(PlanePoints(given));
  ASSERT_TRUE(found.has_value());
  EXPECT_NEAR(found->parameters.a, given.a, 1e-12);
  EXPECT_NEAR(found->parameters.b, given.b, 1e-12);
  EXPECT_NEAR(found->parameters.east, given.east, 1e-5);
  EXPECT_NEAR(found->parameters.north, given.north, 1e-5);
  EXPECT_LT(found->standard_deviation, 1e-8);
  for (const EastNorth& residual : found->residuals) {
    EXPECT_LT(std::hypot(residual.east, residual.north), 1e-8);
  }
}

// Two opposite corners of a square moved outwards: an error that no similarity takes up.
TEST(ParameterEstimation, ResidualsAndTheirDeviationAreThoseOfTheAdjustment) {
  std::vector<CommonPlanePoint> points;
  for (const EastNorth corner : {EastNorth{0.0, 0.0}, EastNorth{100.0, 0.0},
                                 EastNorth{100.0, 100.0}, EastNorth{0.0, 100.0}}) {
    points.push_back({corner, corner});
  }
  points[0].to.east += 0.04;
  points[1].to.east -= 0.04;
  points[2].to.east += 0.04;
  points[3].to.east -= 0.04;
  const auto found = EstimateSimilarity(points);
  ASSERT_TRUE(found.has_value());
  EXPECT_NEAR(found->residuals[0].east, 0.04, 1e-12);
  EXPECT_NEAR(found->residuals[1].east, -0.04, 1e-12);
  EXPECT_NEAR(found->residuals[2].north, 0.0, 1e-12);
  EXPECT_NEAR(found->standard_deviation, std::sqrt(4 * 0.04 * 0.04 / 4), 1e-12);
}

TEST(ParameterEstimation, TwoPointsDetermineASimilarityWithoutRedundancy) {
  auto points = PlanePoints({10.0, 20.0, 1.0, 0.001});
  points.resize(2);
  const auto found = EstimateSimilarity(points);
  ASSERT_TRUE(found.has_value());
  EXPECT_NEAR(found->parameters.b, 0.001, 1e-12);
  EXPECT_EQ(found->standard_deviation, 0.0);
}

TEST(ParameterEstimation, PointsThatDetermineNoSimilarityGiveNothing) {
  auto points = PlanePoints({10.0, 20.0, 1.0, 0.001});
  EXPECT_FALSE(EstimateSimilarity({}).has_value());
  EXPECT_FALSE(EstimateSimilarity({points[0]}).has_value());
  EXPECT_FALSE(EstimateSimilarity({points[0], points[0], points[0]}).has_value());
  points[1].to.north = std::nan("");
  EXPECT_FALSE(EstimateSimilarity(points).has_value());
}

// Points of a province on an Earth of 6,400 km.
std::vector<CommonPoint> SpacePoints(const Helmert7& shift) {
  std::vector<CommonPoint> points;
  for (const LonLatHeight at : {LonLatHeight{113.1, 29.9, 30.0}, LonLatHeight{115.9, 30.2, 210.0},
                                LonLatHeight{114.2, 32.4, 95.0}, LonLatHeight{112.0, 31.3, 480.0},
                                LonLatHeight{114.9, 31.0, 12.0}}) {
    const Cartesian from = ToCartesian(kKrassowsky1940, {at.lon, at.lat}, at.height);
    points.push_back({from, Apply(shift, from)});
  }
  return points;
}

TEST(ParameterEstimation, SevenParametersAreFoundAgainInBothConventions) {
  for (const RotationConvention convention :
       {RotationConvention::kPositionVector, RotationConvention::kCoordinateFrame}) {
    for (const double size : {1.0, 40.0}) {  // ordinary and far too large rotations
      const Helmert7 given{
          {12.5, -107.1, -62.3}, {0.5 * size, 1.2 * size, -0.9 * size}, 2.3 * size, convention};
      const auto found = EstimateHelmert(SpacePoints(given), convention);
      ASSERT_TRUE(found.has_value());
      EXPECT_NEAR(found->parameters.translation.x, given.translation.x, 1e-4);
      EXPECT_NEAR(found->parameters.translation.y, given.translation.y, 1e-4);
      EXPECT_NEAR(found->parameters.translation.z, given.translation.z, 1e-4);
      EXPECT_NEAR(found->parameters.rotation.x, given.rotation.x, 1e-6);
      EXPECT_NEAR(found->parameters.rotation.y, given.rotation.y, 1e-6);
      EXPECT_NEAR(found->parameters.rotation.z, given.rotation.z, 1e-6);
      EXPECT_NEAR(found->parameters.scale_ppm, given.scale_ppm, 1e-5);
      EXPECT_LT(found->standard_deviation, 1e-7);
    }
  }
}

TEST(ParameterEstimation, TheConventionAskedForComesOutWhateverMadeThePoints) {
  const Helmert7 given{
      {12.5, -107.1, -62.3}, {0.5, 1.2, -0.9}, 2.3, RotationConvention::kCoordinateFrame};
  const auto found = EstimateHelmert(SpacePoints(given), RotationConvention::kPositionVector);
  ASSERT_TRUE(found.has_value());
  EXPECT_NEAR(found->parameters.rotation.y, -1.2, 1e-6);
  EXPECT_EQ(found->parameters.convention, RotationConvention::kPositionVector);
}

// Noise of 2 cm: the deviation tells it, and the sum of the residuals vanishes.
TEST(ParameterEstimation, NoiseShowsInTheDeviationsAndNotInTheSum) {
  const Helmert7 given{
      {12.5, -107.1, -62.3}, {0.5, 1.2, -0.9}, 2.3, RotationConvention::kPositionVector};
  std::mt19937 random(7);
  std::vector<CommonPoint> points;
  for (int i = 0; i < 200; ++i) {
    const auto unit = [&] { return static_cast<double>(random()) / 4294967296.0; };
    const Cartesian from =
        ToCartesian(kKrassowsky1940, {112.0 + 4.0 * unit(), 29.0 + 4.0 * unit()}, 500.0 * unit());
    Cartesian to = Apply(given, from);
    // Twelve uniform numbers have the variance 1.
    const auto normal = [&] {
      double sum = -6.0;
      for (int k = 0; k < 12; ++k) sum += unit();
      return 0.02 * sum;
    };
    to.x += normal();
    to.y += normal();
    to.z += normal();
    points.push_back({from, to});
  }
  const auto found = EstimateHelmert(points, given.convention);
  ASSERT_TRUE(found.has_value());
  EXPECT_NEAR(found->standard_deviation, 0.02, 0.002);
  EXPECT_NEAR(found->translation_deviation.x, 0.02 / std::sqrt(200.0), 5e-4);
  EXPECT_NEAR(found->parameters.scale_ppm, 2.3, 5 * found->scale_deviation);
  EXPECT_NEAR(found->parameters.rotation.z, -0.9, 5 * found->rotation_deviation.z);
  double sum = 0;
  for (const Cartesian& residual : found->residuals) sum += residual.x;
  EXPECT_NEAR(sum, 0.0, 1e-5);
}

TEST(ParameterEstimation, PointsThatDetermineNoShiftGiveNothing) {
  const Helmert7 shift{{1.0, 2.0, 3.0}, {0.1, 0.2, 0.3}, 0.5, RotationConvention::kPositionVector};
  auto points = SpacePoints(shift);
  const auto convention = RotationConvention::kPositionVector;
  EXPECT_FALSE(EstimateHelmert({}, convention).has_value());
  EXPECT_FALSE(EstimateHelmert({points[0], points[1]}, convention).has_value());
  EXPECT_FALSE(EstimateHelmert({points[0], points[0], points[0]}, convention).has_value());
  std::vector<CommonPoint> line;
  for (int i = 0; i < 5; ++i) {
    const Cartesian from{-2100000.0 + 1000.0 * i, 4900000.0 + 500.0 * i, 3400000.0 - 300.0 * i};
    line.push_back({from, Apply(shift, from)});
  }
  EXPECT_FALSE(EstimateHelmert(line, convention).has_value());
  points[2].from.y = std::nan("");
  EXPECT_FALSE(EstimateHelmert(points, convention).has_value());
}

}  // namespace
}  // namespace quarnfc::ext
