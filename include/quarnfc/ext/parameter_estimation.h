// SPDX-License-Identifier: MIT
// Estimating the parameters of a datum shift from points that are known in both systems, by least
// squares with equal weights.
//
// Seven parameters (Helmert7) from three points or more in space, four (PlaneSimilarity) from two
// or more in the plane. Coordinates are reduced to their centre before anything is solved, so that
// the equations stay well conditioned a few kilometres apart on an Earth of 6,400 km; the seven
// parameters are found by Gauss and Newton's method on the very formula that Apply uses.
//
// Header-only, C++17, in the namespace quarnfc::ext. std::bad_alloc when memory is exhausted.
//
// Example:
//   using namespace quarnfc::ext;
//   const std::vector<CommonPlanePoint> points{{{0, 0}, {10, 20}},
//                                              {{100, 0}, {110, 20}},
//                                              {{0, 100}, {10, 120}}};
//   const auto found = EstimateSimilarity(points);
//   std::lround(found->parameters.Scale() * 1e6);      // == 1000000
//   std::lround(found->residuals[0].east * 1000);      // == 0
#ifndef QUARNFC_EXT_PARAMETER_ESTIMATION_H_
#define QUARNFC_EXT_PARAMETER_ESTIMATION_H_

#include <quarnfc/ext/datum_shift.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace quarnfc::ext {

// A point known in both systems: in space, metres from each system's origin.
struct CommonPoint {
  Cartesian from;
  Cartesian to;
};
// A point known in both systems: in the plane, metres.
struct CommonPlanePoint {
  EastNorth from;
  EastNorth to;
};

// What EstimateSimilarity finds.
struct SimilarityEstimate {
  PlaneSimilarity parameters;
  std::vector<EastNorth> residuals;  // given minus computed, metres, one a point
  double standard_deviation = 0;     // of one coordinate, metres; 0 without redundancy
};

// What EstimateHelmert finds.
struct HelmertEstimate {
  Helmert7 parameters;
  std::vector<Cartesian> residuals;  // given minus computed, metres, one a point
  double standard_deviation = 0;     // of one coordinate, metres; 0 without redundancy
  // Of the parameters themselves: metres, arc-seconds, parts per million. The translation's are
  // those at the centre of the points, where it is not mixed with the rotations.
  AxisTriple translation_deviation;
  AxisTriple rotation_deviation;
  double scale_deviation = 0;
};

// The similarity through two or more points. Nothing when there are fewer, when they all coincide,
// or when a coordinate is not finite.
inline std::optional<SimilarityEstimate> EstimateSimilarity(
    const std::vector<CommonPlanePoint>& points) {
  const auto count = static_cast<double>(points.size());
  if (points.size() < 2) return std::nullopt;
  EastNorth from, to;
  for (const CommonPlanePoint& point : points) {
    from.east += point.from.east / count;
    from.north += point.from.north / count;
    to.east += point.to.east / count;
    to.north += point.to.north / count;
  }
  double square = 0, product = 0, cross = 0;
  for (const CommonPlanePoint& point : points) {
    const double e = point.from.east - from.east, n = point.from.north - from.north;
    const double te = point.to.east - to.east, tn = point.to.north - to.north;
    square += e * e + n * n;
    product += e * te + n * tn;
    cross += e * tn - n * te;
  }
  SimilarityEstimate found;
  PlaneSimilarity& similarity = found.parameters;
  similarity.a = product / square;
  similarity.b = cross / square;
  similarity.east = to.east - similarity.a * from.east + similarity.b * from.north;
  similarity.north = to.north - similarity.b * from.east - similarity.a * from.north;
  if (!(square > 0) || !std::isfinite(similarity.east) || !std::isfinite(similarity.north)) {
    return std::nullopt;
  }
  double sum = 0;
  for (const CommonPlanePoint& point : points) {
    const EastNorth computed = Apply(similarity, point.from);
    found.residuals.push_back({point.to.east - computed.east, point.to.north - computed.north});
    sum += std::pow(found.residuals.back().east, 2) + std::pow(found.residuals.back().north, 2);
  }
  if (points.size() > 2) found.standard_deviation = std::sqrt(sum / (2.0 * count - 4.0));
  return found;
}

namespace detail {

constexpr std::size_t kHelmertUnknowns = 7;

// The normal equations of a least-squares problem with seven unknowns.
class NormalEquations {
 public:
  // Adds the observation row * unknowns = value.
  void Add(const std::array<double, kHelmertUnknowns>& row, double value) {
    for (std::size_t i = 0; i < kHelmertUnknowns; ++i) {
      for (std::size_t j = 0; j < kHelmertUnknowns; ++j) matrix_[i][j] += row[i] * row[j];
      right_[i] += row[i] * value;
    }
  }

  // Solves by Gauss-Jordan elimination; the matrix becomes its inverse. False when the points do
  // not determine the unknowns: a pivot is lost in the rounding of the diagonal.
  bool Solve(std::array<double, kHelmertUnknowns>& unknowns) {
    std::array<double, kHelmertUnknowns> diagonal{};
    for (std::size_t i = 0; i < kHelmertUnknowns; ++i) diagonal[i] = matrix_[i][i];
    for (std::size_t k = 0; k < kHelmertUnknowns; ++k) {
      const double pivot = matrix_[k][k];
      if (!(pivot > diagonal[k] * 1e-12)) return false;
      Eliminate(k, pivot);
    }
    for (std::size_t i = 0; i < kHelmertUnknowns; ++i) {
      unknowns[i] = 0;
      for (std::size_t j = 0; j < kHelmertUnknowns; ++j) unknowns[i] += matrix_[i][j] * right_[j];
    }
    return true;
  }

  // After Solve: the cofactor of unknown i.
  double Cofactor(std::size_t i) const { return matrix_[i][i]; }

 private:
  // One step of the inversion in place: the matrix is symmetric and positive, so its diagonal
  // serves as pivots.
  void Eliminate(std::size_t k, double pivot) {
    for (std::size_t j = 0; j < kHelmertUnknowns; ++j) {
      if (j != k) matrix_[k][j] /= pivot;
    }
    for (std::size_t i = 0; i < kHelmertUnknowns; ++i) {
      if (i == k) continue;
      for (std::size_t j = 0; j < kHelmertUnknowns; ++j) {
        if (j != k) matrix_[i][j] -= matrix_[i][k] * matrix_[k][j];
      }
      matrix_[i][k] /= -pivot;
    }
    matrix_[k][k] = 1.0 / pivot;
  }

  double matrix_[kHelmertUnknowns][kHelmertUnknowns] = {};
  std::array<double, kHelmertUnknowns> right_{};
};

inline Cartesian Centre(const std::vector<CommonPoint>& points, Cartesian CommonPoint::*side) {
  Cartesian centre;
  const auto count = static_cast<double>(points.size());
  for (const CommonPoint& point : points) {
    centre.x += (point.*side).x / count;
    centre.y += (point.*side).y / count;
    centre.z += (point.*side).z / count;
  }
  return centre;
}

inline Cartesian Difference(const Cartesian& left, const Cartesian& right) {
  return {left.x - right.x, left.y - right.y, left.z - right.z};
}

// The largest distance of a point from the centre: unknowns are scaled by it to the size of metres.
inline double Extent(const std::vector<CommonPoint>& points, const Cartesian& centre) {
  double extent = 0;
  for (const CommonPoint& point : points) {
    const Cartesian d = Difference(point.from, centre);
    extent = std::fmax(extent, std::hypot(d.x, std::hypot(d.y, d.z)));
  }
  return extent;
}

// Solves for corrections of the parameters about the centre, whose translation is that of the
// centre. Unknowns: translation, rotations and scale times the extent.
inline bool Improve(const std::vector<CommonPoint>& points, const Cartesian& from,
                    const Cartesian& to, double extent, Helmert7& about, NormalEquations& normal) {
  normal = NormalEquations();
  const double sign = about.convention == RotationConvention::kPositionVector ? 1.0 : -1.0;
  const double s = 1.0 + about.scale_ppm * 1e-6;
  for (const CommonPoint& point : points) {
    const Cartesian d = Difference(point.from, from);
    const Cartesian computed = Apply(about, d);
    const Cartesian miss = Difference(Difference(point.to, to), computed);
    const Cartesian turned =
        Difference(computed, {about.translation.x, about.translation.y, about.translation.z});
    const double r = sign * s / extent, m = 1.0 / (s * extent);
    normal.Add({1, 0, 0, 0, r * d.z, -r * d.y, m * turned.x}, miss.x);
    normal.Add({0, 1, 0, -r * d.z, 0, r * d.x, m * turned.y}, miss.y);
    normal.Add({0, 0, 1, r * d.y, -r * d.x, 0, m * turned.z}, miss.z);
  }
  std::array<double, kHelmertUnknowns> change{};
  if (!normal.Solve(change)) return false;
  const double to_seconds = 1.0 / (extent * kRadiansPerArcSecond);
  about.translation.x += change[0];
  about.translation.y += change[1];
  about.translation.z += change[2];
  about.rotation.x += change[3] * to_seconds;
  about.rotation.y += change[4] * to_seconds;
  about.rotation.z += change[5] * to_seconds;
  about.scale_ppm += change[6] / extent * 1e6;
  return true;
}

inline void FillDeviations(const NormalEquations& normal, double extent, HelmertEstimate& found) {
  const auto deviation = [&](std::size_t i) {
    return found.standard_deviation * std::sqrt(normal.Cofactor(i));
  };
  const double to_seconds = 1.0 / (extent * kRadiansPerArcSecond);
  found.translation_deviation = {deviation(0), deviation(1), deviation(2)};
  found.rotation_deviation = {deviation(3) * to_seconds, deviation(4) * to_seconds,
                              deviation(5) * to_seconds};
  found.scale_deviation = deviation(6) / extent * 1e6;
}

}  // namespace detail

// The seven parameters from three or more points, in the convention asked for. Nothing when there
// are fewer points, when they lie (nearly) on one line, or when a coordinate is not finite.
inline std::optional<HelmertEstimate> EstimateHelmert(const std::vector<CommonPoint>& points,
                                                      RotationConvention convention) {
  if (points.size() < 3) return std::nullopt;
  const Cartesian from = detail::Centre(points, &CommonPoint::from);
  const Cartesian to = detail::Centre(points, &CommonPoint::to);
  const double extent = detail::Extent(points, from);
  if (!(extent > 0) || !std::isfinite(extent)) return std::nullopt;

  HelmertEstimate found;
  Helmert7& shift = found.parameters;
  shift.convention = convention;
  detail::NormalEquations normal;
  for (int step = 0; step < 4; ++step) {
    if (!detail::Improve(points, from, to, extent, shift, normal)) return std::nullopt;
  }
  // From the translation of the centre to that of the origin.
  const Cartesian moved = Apply(shift, from);
  shift.translation = {to.x + 2 * shift.translation.x - moved.x,
                       to.y + 2 * shift.translation.y - moved.y,
                       to.z + 2 * shift.translation.z - moved.z};

  double sum = 0;
  for (const CommonPoint& point : points) {
    const Cartesian residual = detail::Difference(point.to, Apply(shift, point.from));
    found.residuals.push_back(residual);
    sum += residual.x * residual.x + residual.y * residual.y + residual.z * residual.z;
  }
  if (!std::isfinite(sum)) return std::nullopt;
  const double redundancy = 3.0 * static_cast<double>(points.size()) - 7.0;
  found.standard_deviation = std::sqrt(sum / redundancy);
  detail::FillDeviations(normal, extent, found);
  return found;
}

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_PARAMETER_ESTIMATION_H_
