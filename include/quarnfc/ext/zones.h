// SPDX-License-Identifier: MIT
// Zones of the Gauss-Krueger and UTM systems: numbers, central meridians, eastings with the zone
// number in front.
//
// Zones of 6 degrees are numbered from the Greenwich meridian: zone z has the central meridian
// 6z - 3. Zones of 3 degrees have the central meridian 3z. China lies in the zones 13 to 23 of 6
// degrees and 24 to 45 of 3 degrees, so that there the number in front of an easting also tells the
// width. (GB/T 17798 and the usual practice of Chinese surveying.)
//
// Header-only, C++17, in the namespace quarnfc::ext; degrees and metres. Any thread may call.
//
// Example:
//   using namespace quarnfc::ext;
//   GaussZone(114.3055, ZoneWidth::k3Degrees);            // == 38
//   CentralMeridian(38, ZoneWidth::k3Degrees);            // == 114.0
//   SplitPrefixedEasting(38529283.25)->easting;           // == 529283.25
#ifndef QUARNFC_EXT_ZONES_H_
#define QUARNFC_EXT_ZONES_H_

#include <cmath>
#include <optional>

namespace quarnfc::ext {

enum class ZoneWidth : int { k3Degrees = 3, k6Degrees = 6 };

inline int Degrees(ZoneWidth width) { return static_cast<int>(width); }

// How many zones go around the Earth.
inline int ZoneCount(ZoneWidth width) { return 360 / Degrees(width); }

// The central meridian of a zone in degrees, in (-180, 180]; not-a-number unless zone is 1 to
// ZoneCount.
inline double CentralMeridian(int zone, ZoneWidth width) {
  if (zone < 1 || zone > ZoneCount(width)) return std::nan("");
  const double meridian = width == ZoneWidth::k6Degrees ? 6.0 * zone - 3.0 : 3.0 * zone;
  return meridian > 180.0 ? meridian - 360.0 : meridian;
}

// The zone that a longitude (degrees, any turn of the Earth) lies in; a longitude between two zones
// belongs to the eastern one. 0 for not-a-number and infinities.
inline int GaussZone(double lon, ZoneWidth width) {
  if (!std::isfinite(lon)) return 0;
  double turned = std::fmod(lon, 360.0);
  if (turned < 0) turned += 360.0;
  if (width == ZoneWidth::k6Degrees) return static_cast<int>(turned / 6.0) % 60 + 1;
  const int zone = static_cast<int>(std::floor((turned + 1.5) / 3.0));
  return zone == 0 ? 120 : zone;
}

// The zone whose central meridian is nearest to the middle of an extent from west to east (degrees;
// east below west spans the meridian of 180 degrees): no other zone keeps its farthest point
// nearer. 0 for not-a-number and infinities.
inline int BestZone(double west, double east, ZoneWidth width) {
  if (east < west) east += 360.0;
  return GaussZone(west + (east - west) / 2.0, width);
}

// The UTM zone of a position in degrees, 1 to 60, with the exceptions of Norway (32V) and Svalbard
// (31X to 37X); negative on the southern hemisphere, as CQNProCoordinateSystem::setByUTMCode takes
// it. 0 outside the latitudes -80 to 84, where UTM is not used, and for not-a-number.
inline int UtmZone(double lon, double lat) {
  if (!std::isfinite(lon) || !(lat >= -80.0 && lat <= 84.0)) return 0;
  const double turned = std::remainder(lon, 360.0);
  const int zone = GaussZone(turned + 180.0, ZoneWidth::k6Degrees);
  if (lat < 0) return -zone;
  if (lat >= 56.0 && lat < 64.0 && turned >= 3.0 && turned < 12.0) return 32;
  if (lat >= 72.0 && turned >= 0.0 && turned < 42.0) {
    if (turned < 9.0) return 31;
    if (turned < 21.0) return 33;
    return turned < 33.0 ? 35 : 37;
  }
  return zone;
}

// --- eastings with the zone number in front ----------------------------------------------------

// The zone in front of an easting that carries the false easting of 500,000 m: 529283.4 in zone 38
// becomes 38529283.4.
inline double PrefixEasting(int zone, double easting) { return zone * 1000000.0 + easting; }

struct PrefixedEasting {
  int zone = 0;
  double easting = 0;                      // without the zone, metres
  ZoneWidth width = ZoneWidth::k3Degrees;  // as China's zone numbers tell it
};

// Takes the zone number off an easting. Nothing unless it has one of the numbers used in China (13
// to 23: 6 degrees, 24 to 45: 3 degrees) in front of six digits.
inline std::optional<PrefixedEasting> SplitPrefixedEasting(double easting) {
  if (!(easting >= 13000000.0 && easting < 46000000.0)) return std::nullopt;
  PrefixedEasting split;
  split.zone = static_cast<int>(easting / 1000000.0);
  split.easting = easting - split.zone * 1000000.0;
  split.width = split.zone <= 23 ? ZoneWidth::k6Degrees : ZoneWidth::k3Degrees;
  return split;
}

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_ZONES_H_
