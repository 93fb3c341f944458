// SPDX-License-Identifier: MIT
// A survey mark in two coordinate systems, and a system read from a text.
#include <quarnfc/quarnfc.h>

#include <cmath>
#include <cstdio>

int main() {
  // CGCS2000, 3-degree zone with the central meridian 114 degrees east.
  CQNProCoordinateSystem zone;
  CQNProCoordinateSystem::EPCSType family;
  if (!zone.setByEPSGCode(4547, family)) return 1;

  double east, north, lon, lat;
  CQNProCoordinateSystem::GeoToGauss(112.938814, 28.228209, east, north, zone);
  CQNProCoordinateSystem::GaussToGeo(east, north, lon, lat, zone);
  std::printf("easting %.4f m, northing %.4f m; back: %.9f, %.9f\n", east, north, lon, lat);

  // Every text that the library hands out is released with qnFreeMem.
  char* const wkt = zone.CreateWKT();
  CQNProCoordinateSystem copy;
  const bool same = copy.SetFromWKTA(wkt, nullptr) && copy == zone;
  qnFreeMem(wkt);

  char* message = nullptr;
  const bool refused = !copy.SetFromWKTA("PROJCS[\"no end\"", &message);
  std::printf("a broken text is refused with a message of the library: %s\n",
              refused ? "yes" : "no");
  qnFreeMem(message);

  const bool there_and_back =
      std::fabs(lon - 112.938814) < 1e-8 && std::fabs(lat - 28.228209) < 1e-8;
  return same && refused && there_and_back ? 0 : 1;
}
