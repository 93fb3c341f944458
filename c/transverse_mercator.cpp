// SPDX-License-Identifier: MIT
#include <quarnfc/ext/official_systems.h>

#include "c/geodesy_handle.h"
#include "c/transverse_mercator_handle.h"

namespace {

using quarnfc::c::EllipsoidOf;
using quarnfc::c::Failure;
using quarnfc::c::ForEachPoint;
using quarnfc::c::GuardedNew;
using quarnfc::c::NewHandle;
using quarnfc::c::Store;
using quarnfc::ext::OfficialSystem;
using quarnfc::ext::SystemKind;
using quarnfc::ext::TransverseMercator;

OfficialSystem SystemOfCode(int code) {
  if (const auto system = quarnfc::ext::FindOfficialSystem(code)) return *system;
  throw Failure(QNC_ERROR_ARGUMENT, "Quarn: unknown EPSG code");
}

QncTransverseMercator* FromEpsg(int code) {
  const OfficialSystem system = SystemOfCode(code);
  if (system.kind == SystemKind::kTransverseMercator) {
    return new QncTransverseMercator{system.Projection()};
  }
  throw Failure(QNC_ERROR_ARGUMENT, "Quarn: the EPSG code is no transverse Mercator system");
}

}  // namespace

QncGeographic* qncGeographicFromEpsg(int code, CQNObject** error) {
  return GuardedNew(error, [=] { return NewHandle(SystemOfCode(code).ellipsoid); });
}

QncTransverseMercator* qncTransverseMercatorFromEpsg(int code, CQNObject** error) {
  return GuardedNew(error, [=] { return FromEpsg(code); });
}

QncTransverseMercator* qncTransverseMercatorNew(const QncGeographic* geographic,
                                                double central_meridian, double latitude_of_origin,
                                                double false_easting, double false_northing,
                                                double scale_factor, CQNObject** error) {
  return GuardedNew(error, [=] {
    return new QncTransverseMercator{TransverseMercator(
        EllipsoidOf(geographic),
        {central_meridian, latitude_of_origin, false_easting, false_northing, scale_factor})};
  });
}

void qncTransverseMercatorFree(QncTransverseMercator* system) { delete system; }

int qncTransverseMercatorParameters(const QncTransverseMercator* system, double* central_meridian,
                                    double* latitude_of_origin, double* false_easting,
                                    double* false_northing, double* scale_factor) {
  if (system == nullptr) return 0;
  const auto& parameters = system->projection.Parameters();
  Store(central_meridian, parameters.central_meridian);
  Store(latitude_of_origin, parameters.latitude_of_origin);
  Store(false_easting, parameters.false_easting);
  Store(false_northing, parameters.false_northing);
  Store(scale_factor, parameters.scale_factor);
  return 1;
}

int qncTransverseMercatorForward(const QncTransverseMercator* system, const double* from,
                                 double* to, size_t count) {
  if (system == nullptr) return 0;
  return ForEachPoint<2>(from, to, count, [system](const double* p, double* q) {
    const auto plane = system->projection.Forward({p[0], p[1]});
    q[0] = plane.east;
    q[1] = plane.north;
  });
}

int qncTransverseMercatorInverse(const QncTransverseMercator* system, const double* from,
                                 double* to, size_t count) {
  if (system == nullptr) return 0;
  return ForEachPoint<2>(from, to, count, [system](const double* p, double* q) {
    const auto position = system->projection.Inverse({p[0], p[1]});
    q[0] = position.lon;
    q[1] = position.lat;
  });
}

int qncTransverseMercatorScale(const QncTransverseMercator* system, const double* from, double* to,
                               size_t count) {
  if (system == nullptr) return 0;
  return ForEachPoint<2>(from, to, count, [system](const double* p, double* q) {
    const auto scale = system->projection.ScaleAt({p[0], p[1]});
    q[0] = scale.factor;
    q[1] = scale.convergence;
  });
}
