// SPDX-License-Identifier: MIT
// Handles of the flat C interface are addresses of coordinate systems.
#ifndef QUARNFC_C_GEODESY_HANDLE_H_
#define QUARNFC_C_GEODESY_HANDLE_H_

#include <quarnfc/c/transverse_mercator.h>
#include <quarnfc/ext/datum_shift.h>
#include <quarnfc/geographic.h>
#include <quarnfc/projected.h>

#include <optional>

#include "c/guarded.h"
#include "c/text.h"

namespace quarnfc::c {

inline const CQNGeoCoordinateSystem& SystemOf(const QncGeographic* handle) {
  return *reinterpret_cast<const CQNGeoCoordinateSystem*>(Given(handle));
}

inline const CQNProCoordinateSystem& SystemOf(const QncProjected* handle) {
  return *reinterpret_cast<const CQNProCoordinateSystem*>(Given(handle));
}

inline QncGeographic* NewHandle(const CQNGeoCoordinateSystem& system) {
  return reinterpret_cast<QncGeographic*>(new CQNGeoCoordinateSystem(system));
}

inline QncProjected* NewHandle(const CQNProCoordinateSystem& system) {
  return reinterpret_cast<QncProjected*>(new CQNProCoordinateSystem(system));
}

inline ext::Ellipsoid EllipsoidOf(const QncGeographic* handle) {
  const CQNGeoCoordinateSystem& system = SystemOf(handle);
  return {system.GetSemiMajorAxis(), system.GetInverseFlattening()};
}

inline QncGeographic* NewHandle(const ext::Ellipsoid& ellipsoid) {
  return NewHandle(CQNGeoCoordinateSystem(ellipsoid.semi_major_axis, ellipsoid.inverse_flattening));
}

// A convention of the interface; nothing for another number.
inline std::optional<ext::RotationConvention> ConventionOf(int convention) {
  switch (convention) {
    case QNC_POSITION_VECTOR:
      return ext::RotationConvention::kPositionVector;
    case QNC_COORDINATE_FRAME:
      return ext::RotationConvention::kCoordinateFrame;
    default:
      return std::nullopt;
  }
}

// The system of a text.
template <class System>
System FromWkt(const char* wkt) {
  System system;
  char* reason = nullptr;
  if (system.SetFromWKTA(AnsiText(wkt).get(), &reason)) return system;
  const OwnedText message(reason);
  throw Failure(QNC_ERROR_INVALID_DATA, message.get());
}

template <class System>
char* NewWkt(const System& system) {
  const OwnedText wkt(system.CreateWKT());
  return NewUtf8(wkt.get());
}

inline void Store(double* target, double value) {
  if (target != nullptr) *target = value;
}

// Calls convert(from, to) for every point of size doubles; 0 when an array is null.
template <int size, class Target, class Convert>
int ForEachPoint(const double* from, Target* to, size_t count, const Convert& convert) {
  if (from == nullptr || to == nullptr) return 0;
  for (size_t i = 0; i < count; ++i, from += size, to += size) convert(from, to);
  return 1;
}

}  // namespace quarnfc::c

#endif  // QUARNFC_C_GEODESY_HANDLE_H_
