// SPDX-License-Identifier: MIT
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

const CQNGeoCoordinateSystem& KnownSystem(int number) {
  switch (number) {
    case QNC_BEIJING54:
      return CQNGeoCoordinateSystem::Beijing54;
    case QNC_XIAN80:
      return CQNGeoCoordinateSystem::XiAn80;
    case QNC_CGCS2000:
      return CQNGeoCoordinateSystem::CGCS2000;
    case QNC_WGS84:
      return CQNGeoCoordinateSystem::WGS84;
  }
  throw Failure(QNC_ERROR_ARGUMENT, "Quarn: unknown coordinate system");
}

}  // namespace

QncGeographic* qncGeographicKnown(int system, CQNObject** error) {
  return GuardedNew(error, [=] { return NewHandle(KnownSystem(system)); });
}

QncGeographic* qncGeographicNew(double semi_major_axis, double inverse_flattening,
                                CQNObject** error) {
  return GuardedNew(error, [=] {
    return NewHandle(CQNGeoCoordinateSystem(semi_major_axis, inverse_flattening));
  });
}

QncGeographic* qncGeographicFromWkt(const char* wkt, CQNObject** error) {
  return GuardedNew(error, [=] { return NewHandle(FromWkt<CQNGeoCoordinateSystem>(wkt)); });
}

void qncGeographicFree(QncGeographic* system) {
  delete reinterpret_cast<CQNGeoCoordinateSystem*>(system);
}

char* qncGeographicWkt(const QncGeographic* system, CQNObject** error) {
  return GuardedNew(error, [=] { return NewWkt(SystemOf(system)); });
}

int qncGeographicEllipsoid(const QncGeographic* system, double* semi_major_axis,
                           double* inverse_flattening) {
  if (system == nullptr) return 0;
  Store(semi_major_axis, SystemOf(system).GetSemiMajorAxis());
  Store(inverse_flattening, SystemOf(system).GetInverseFlattening());
  return 1;
}

int qncGeographicToEarthFixed(const QncGeographic* system, const double* from, double* to,
                              size_t count) {
  if (system == nullptr) return 0;
  return ForEachPoint<3>(from, to, count, [&ellipsoid = SystemOf(system)](auto* p, auto* q) {
    CQNGeoCoordinateSystem::LonLat2ECI(p[0], p[1], p[2], q[0], q[1], q[2], ellipsoid);
  });
}

int qncEarthFixedToGeographic(const QncGeographic* system, const double* from, double* to,
                              size_t count) {
  if (system == nullptr) return 0;
  return ForEachPoint<3>(from, to, count, [&ellipsoid = SystemOf(system)](auto* p, auto* q) {
    CQNGeoCoordinateSystem::ECI2LonLat(p[0], p[1], p[2], q[0], q[1], q[2], ellipsoid);
  });
}
