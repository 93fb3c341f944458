// SPDX-License-Identifier: MIT
#include <quarnfc/c/parameter_estimation.h>
#include <quarnfc/ext/parameter_estimation.h>

#include <optional>
#include <vector>

#include "c/geodesy_handle.h"

namespace {

using quarnfc::c::ConventionOf;
using quarnfc::c::Failure;
using quarnfc::c::ForEachPoint;
using quarnfc::c::Given;
using quarnfc::c::Guarded;
using quarnfc::c::Store;
using quarnfc::ext::AxisTriple;
using quarnfc::ext::Cartesian;
using quarnfc::ext::CommonPlanePoint;
using quarnfc::ext::CommonPoint;
using quarnfc::ext::EastNorth;
using quarnfc::ext::PlaneSimilarity;

PlaneSimilarity SimilarityOf(const double* p) { return {p[0], p[1], p[2], p[3]}; }

// apply is Apply of the additions, or the way back.
template <class Apply>
int MovePoints(const double* parameters, const double* from, double* to, size_t count,
               const Apply& apply) {
  if (parameters == nullptr) return 0;
  const PlaneSimilarity similarity = SimilarityOf(parameters);
  return ForEachPoint<2>(from, to, count, [&](const double* p, double* q) {
    const EastNorth moved = apply(similarity, EastNorth{p[0], p[1]});
    q[0] = moved.east;
    q[1] = moved.north;
  });
}

// What an estimate has found.
template <class Estimate>
Estimate Determined(const std::optional<Estimate>& found) {
  if (found) return *found;
  throw Failure(QNC_ERROR_INVALID_DATA, "Quarn: the points do not determine the parameters");
}

void StoreTriple(double* target, const AxisTriple& triple) {
  target[0] = triple.x;
  target[1] = triple.y;
  target[2] = triple.z;
}

void StoreResiduals(double* target, const std::vector<EastNorth>& residuals) {
  if (target == nullptr) return;
  for (const EastNorth& residual : residuals) {
    *target++ = residual.east;
    *target++ = residual.north;
  }
}

void StoreResiduals(double* target, const std::vector<Cartesian>& residuals) {
  if (target == nullptr) return;
  for (const Cartesian& residual : residuals) {
    *target++ = residual.x;
    *target++ = residual.y;
    *target++ = residual.z;
  }
}

}  // namespace

int qncApplySimilarity(const double* parameters, const double* from, double* to, size_t count) {
  return MovePoints(parameters, from, to, count, [](const auto& similarity, const auto& at) {
    return quarnfc::ext::Apply(similarity, at);
  });
}

int qncApplySimilarityBack(const double* parameters, const double* from, double* to, size_t count) {
  return MovePoints(parameters, from, to, count, [](const auto& similarity, const auto& at) {
    return quarnfc::ext::ApplyBack(similarity, at);
  });
}

int qncEstimateSimilarity(const double* from, const double* to, size_t count, double* parameters,
                          double* residuals, double* standard_deviation, CQNObject** error) {
  return Guarded(error, 0, [=] {
    Given(parameters);
    std::vector<CommonPlanePoint> points;
    ForEachPoint<2>(Given(from), Given(to), count, [&](const double* p, const double* q) {
      points.push_back({{p[0], p[1]}, {q[0], q[1]}});
    });
    const auto found = Determined(quarnfc::ext::EstimateSimilarity(points));
    parameters[0] = found.parameters.east;
    parameters[1] = found.parameters.north;
    parameters[2] = found.parameters.a;
    parameters[3] = found.parameters.b;
    StoreResiduals(residuals, found.residuals);
    Store(standard_deviation, found.standard_deviation);
    return 1;
  });
}

int qncEstimateHelmert(const double* from, const double* to, size_t count, int convention,
                       double* parameters, double* residuals, double* standard_deviation,
                       double* parameter_deviations, CQNObject** error) {
  return Guarded(error, 0, [=] {
    Given(parameters);
    const auto rotations = ConventionOf(convention);
    if (!rotations) throw Failure(QNC_ERROR_ARGUMENT, "Quarn: unknown convention of rotations");
    std::vector<CommonPoint> points;
    ForEachPoint<3>(Given(from), Given(to), count, [&](const double* p, const double* q) {
      points.push_back({{p[0], p[1], p[2]}, {q[0], q[1], q[2]}});
    });
    const auto found = Determined(quarnfc::ext::EstimateHelmert(points, *rotations));
    StoreTriple(parameters, found.parameters.translation);
    StoreTriple(parameters + 3, found.parameters.rotation);
    parameters[6] = found.parameters.scale_ppm;
    StoreResiduals(residuals, found.residuals);
    Store(standard_deviation, found.standard_deviation);
    if (parameter_deviations != nullptr) {
      StoreTriple(parameter_deviations, found.translation_deviation);
      StoreTriple(parameter_deviations + 3, found.rotation_deviation);
      parameter_deviations[6] = found.scale_deviation;
    }
    return 1;
  });
}
