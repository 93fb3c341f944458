// SPDX-License-Identifier: MIT
#include <quarnfc/c/height_plane.h>
#include <quarnfc/ext/height_plane.h>

#include <cmath>

#include "c/geodesy_handle.h"

using quarnfc::c::EllipsoidOf;
using quarnfc::c::GuardedNew;
using quarnfc::c::NewHandle;

double qncMeanRadius(const QncGeographic* system, double latitude) {
  if (system == nullptr) return std::nan("");
  return quarnfc::ext::MeanRadius(EllipsoidOf(system), latitude);
}

double qncCombinedScale(double point_scale, double height, double radius) {
  return quarnfc::ext::CombinedScale(point_scale, height, radius);
}

double qncDeformation(double point_scale, double height, double radius) {
  return quarnfc::ext::Deformation(point_scale, height, radius);
}

double qncCompensationHeight(double ground_height, double offset, double radius) {
  return quarnfc::ext::CompensationHeight(ground_height, offset, radius);
}

double qncCompensatedOffset(double ground_height, double plane_height, double radius) {
  return quarnfc::ext::CompensatedOffset(ground_height, plane_height, radius);
}

QncGeographic* qncGeographicRaised(const QncGeographic* system, double height, double latitude,
                                   CQNObject** error) {
  return GuardedNew(error, [=] {
    return NewHandle(quarnfc::ext::RaisedEllipsoid(EllipsoidOf(system), height, latitude));
  });
}
