// SPDX-License-Identifier: MIT
#include "c/geodesy_handle.h"

namespace {

using quarnfc::c::ConventionOf;
using quarnfc::c::EllipsoidOf;
using quarnfc::c::ForEachPoint;
using quarnfc::ext::Ellipsoid;
using quarnfc::ext::Helmert7;
using quarnfc::ext::LonLatHeight;
using quarnfc::ext::RotationConvention;

// The seven doubles of the interface.
Helmert7 ShiftOf(const double* p, RotationConvention convention) {
  return {{p[0], p[1], p[2]}, {p[3], p[4], p[5]}, p[6], convention};
}

// shift is ShiftDatum of the additions, or the way back.
template <class Shift>
int ShiftPoints(const QncGeographic* from_system, const QncGeographic* to_system,
                const double* parameters, int convention, const double* from, double* to,
                size_t count, const Shift& shift) {
  const auto rotations = ConventionOf(convention);
  if (from_system == nullptr || to_system == nullptr || parameters == nullptr || !rotations) {
    return 0;
  }
  const Helmert7 helmert = ShiftOf(parameters, *rotations);
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
