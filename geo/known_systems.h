// SPDX-License-Identifier: MIT
// The names under which the predefined systems are written in WKT.
#ifndef QUARNFC_GEO_KNOWN_SYSTEMS_H_
#define QUARNFC_GEO_KNOWN_SYSTEMS_H_

#include <quarnfc/geographic.h>

namespace quarnfc::geo {

struct KnownSystem {
  const CQNGeoCoordinateSystem* system;
  const char* name;
  const char* datum;
  const char* spheroid;
  const char* degree;      // radians per degree, as written
  const char* projection;  // the name inside that of a projected system
};

// The names of the first predefined system equal to this one, or those of an unknown system.
const KnownSystem& FindKnownSystem(const CQNGeoCoordinateSystem& system);

}  // namespace quarnfc::geo

#endif  // QUARNFC_GEO_KNOWN_SYSTEMS_H_
