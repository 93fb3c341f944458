// SPDX-License-Identifier: MIT
#include <quarnfc/c/transverse_mercator.h>
#include <quarnfc/ext/datum_shift.h>

#include "c/geodesy_handle.h"

namespace {

using quarnfc::c::ForEachPoint;
using quarnfc::c::SystemOf;
using quarnfc::ext::Ellipsoid;
using quarnfc::ext::Helmert7;
using quarnfc::ext::LonLatHeight;
using quarnfc::ext::RotationConvention;

Ellipsoid EllipsoidOf(const QncGeographic* system) {
  return {SystemOf(system).GetSemiMajorAxis(), SystemOf(system).GetInverseFlattening()};
}

// The seven doubles and the convention of the interface.
Helmert7 ShiftOf(const double* p, int convention) {
  return {{p[0], p[1], p[2]},
          {p[3], p[4], p[5]},
          p[6],
          convention == QNC_POSITION_VECTOR ? RotationConvention::kPositionVector
                                            : RotationConvention::kCoordinateFrame};
}

// shift is ShiftDatum of the additions, or the way back.
template <class Shift>
int ShiftPoints(const QncGeographic* from_system, const QncGeographic* to_system,
                const double* parameters, int convention, const double* from, double* to,
                size_t count, const Shift& shift) {
  const bool known = convention == QNC_POSITION_VECTOR || convention == QNC_COORDINATE_FRAME;
  if (from_system == nullptr || to_system == nullptr || parameters == nullptr || !known) return 0;
  const Helmert7 helmert = ShiftOf(parameters, convention);
  const Ellipsoid source = EllipsoidOf(from_system);
  const Ellipsoid target = EllipsoidOf(to_system);
  return ForEachPoint<3>(from, to, count, [&](const double* p, double* q) {
    const LonLatHeight there = shift(source, {p[0], p[1], p[2]}, helmert, target);
    q[0] = there.lon;
    q[1] = there.lat;
    q[2] = there.height;
  });
}

}  // namespace

int qncShiftDatum(const QncGeographic* from_system, const QncGeographic* to_system,
                  const double* parameters, int convention, const double* from, double* to,
                  size_t count) {
  return ShiftPoints(from_system, to_system, parameters, convention, from, to, count,
                     quarnfc::ext::ShiftDatum);
}

int qncShiftDatumBack(const QncGeographic* from_system, const QncGeographic* to_system,
                      const double* parameters, int convention, const double* from, double* to,
                      size_t count) {
  return ShiftPoints(from_system, to_system, parameters, convention, from, to, count,
                     quarnfc::ext::ShiftDatumBack);
}
