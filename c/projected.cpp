// SPDX-License-Identifier: MIT
#include <quarnfc/web_mercator.h>

#include "c/geodesy_handle.h"

namespace {

using quarnfc::c::Failure;
using quarnfc::c::ForEachPoint;
using quarnfc::c::FromWkt;
using quarnfc::c::GuardedNew;
using quarnfc::c::NewHandle;
using quarnfc::c::NewWkt;
using quarnfc::c::Store;
using quarnfc::c::SystemOf;

QncProjected* FromEpsg(int code) {
  CQNProCoordinateSystem system;
  CQNProCoordinateSystem::EPCSType type = CQNProCoordinateSystem::ePCSBeijing54;
  if (system.setByEPSGCode(code, type)) return NewHandle(system);
  throw Failure(QNC_ERROR_ARGUMENT, "Quarn: unknown EPSG code");
}

QncProjected* FromUtmZone(int zone) {
  CQNProCoordinateSystem system;
  if (system.setByUTMCode(zone)) return NewHandle(system);
  throw Failure(QNC_ERROR_ARGUMENT, "Quarn: no UTM zone");
}

}  // namespace

QncProjected* qncProjectedNew(const QncGeographic* geographic, double central_meridian,
                              double false_easting, double false_northing, double scale_factor,
                              CQNObject** error) {
  return GuardedNew(error, [=] {
    return NewHandle(CQNProCoordinateSystem(SystemOf(geographic), central_meridian, false_easting,
                                            false_northing, scale_factor));
  });
}

QncProjected* qncProjectedFromWkt(const char* wkt, CQNObject** error) {
  return GuardedNew(error, [=] { return NewHandle(FromWkt<CQNProCoordinateSystem>(wkt)); });
}

QncProjected* qncProjectedFromEpsg(int code, CQNObject** error) {
  return GuardedNew(error, [=] { return FromEpsg(code); });
}

QncProjected* qncProjectedFromUtmZone(int zone, CQNObject** error) {
  return GuardedNew(error, [=] { return FromUtmZone(zone); });
}

void qncProjectedFree(QncProjected* system) {
  delete reinterpret_cast<CQNProCoordinateSystem*>(system);
}

char* qncProjectedWkt(const QncProjected* system, CQNObject** error) {
  return GuardedNew(error, [=] { return NewWkt(SystemOf(system)); });
}

QncGeographic* qncProjectedGeographic(const QncProjected* system, CQNObject** error) {
  return GuardedNew(error, [=] { return NewHandle(SystemOf(system).GetGeoSystem()); });
}

int qncProjectedParameters(const QncProjected* system, double* central_meridian,
                           double* false_easting, double* false_northing, double* scale_factor) {
  if (system == nullptr) return 0;
  Store(central_meridian, SystemOf(system).GetCentralMeridian());
  Store(false_easting, SystemOf(system).GetFalseEasting());
  Store(false_northing, SystemOf(system).GetFalseNorthing());
  Store(scale_factor, SystemOf(system).GetScaleFactor());
  return 1;
}

int qncProject(const QncProjected* system, const double* from, double* to, size_t count) {
  if (system == nullptr) return 0;
  return ForEachPoint<2>(from, to, count, [&projected = SystemOf(system)](auto* p, auto* q) {
    CQNProCoordinateSystem::GeoToGauss(p[0], p[1], q[0], q[1], projected);
  });
}

int qncUnproject(const QncProjected* system, const double* from, double* to, size_t count) {
  if (system == nullptr) return 0;
  return ForEachPoint<2>(from, to, count, [&projected = SystemOf(system)](auto* p, auto* q) {
    CQNProCoordinateSystem::GaussToGeo(p[0], p[1], q[0], q[1], projected);
  });
}

int qncProjectWebMercator(const double* from, double* to, size_t count) {
  return ForEachPoint<2>(from, to, count, [](auto* p, auto* q) {
    QNWebMercator::LonLat2WebMercator(p[0], p[1], q[0], q[1]);
  });
}

int qncUnprojectWebMercator(const double* from, double* to, size_t count) {
  return ForEachPoint<2>(from, to, count, [](auto* p, auto* q) {
    QNWebMercator::WebMercator2LonLat(p[0], p[1], q[0], q[1]);
  });
}
