// SPDX-License-Identifier: MIT
#include "geo/known_systems.h"

#include <algorithm>
#include <iterator>

namespace quarnfc::geo {

namespace {

// The two older systems are written with more digits than the others, deliberately.
constexpr char kDegree17[] = "0.01745329251994328";
constexpr char kDegree15[] = "0.0174532925199433";

// In the order in which they are tried. The last row stands for every other system.
constexpr KnownSystem kKnownSystems[] = {
    {&CQNGeoCoordinateSystem::Beijing54, "Beijing 1954", "Beijing_1954", "Krassowsky 1940",
     kDegree17, "Beijing 1954"},
    {&CQNGeoCoordinateSystem::XiAn80, "Xian 1980", "Xian_1980", "Xian 1980", kDegree17,
     "Xian 1980"},
    {&CQNGeoCoordinateSystem::CGCS2000, "China Geodetic Coordinate System 2000", "China_2000",
     "CGCS2000", kDegree15, "CGCS2000"},
    {&CQNGeoCoordinateSystem::WGS84, "WGS 84", "WGS_1984", "WGS 84", kDegree15, "WGS 84"},
    {nullptr, "Unknown", "Unknown", "Unknown", kDegree15, "Unknown"},
};

}  // namespace

const KnownSystem& FindKnownSystem(const CQNGeoCoordinateSystem& system) {
  return *std::find_if(std::begin(kKnownSystems), std::end(kKnownSystems) - 1,
                       [&](const KnownSystem& known) { return system == *known.system; });
}

}  // namespace quarnfc::geo
