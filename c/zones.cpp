// SPDX-License-Identifier: MIT
#include <quarnfc/c/zones.h>
#include <quarnfc/ext/zones.h>

#include <cmath>

namespace {

using quarnfc::ext::ZoneWidth;

bool IsWidth(int width) { return width == 3 || width == 6; }

template <class Type>
void Store(Type* target, Type value) {
  if (target != nullptr) *target = value;
}

}  // namespace

int qncGaussZone(double longitude, int width) {
  return IsWidth(width) ? quarnfc::ext::GaussZone(longitude, ZoneWidth{width}) : 0;
}

double qncCentralMeridian(int zone, int width) {
  return IsWidth(width) ? quarnfc::ext::CentralMeridian(zone, ZoneWidth{width}) : std::nan("");
}

int qncBestZone(double west, double east, int width) {
  return IsWidth(width) ? quarnfc::ext::BestZone(west, east, ZoneWidth{width}) : 0;
}

int qncUtmZone(double longitude, double latitude) {
  return quarnfc::ext::UtmZone(longitude, latitude);
}

double qncPrefixEasting(int zone, double easting) {
  return quarnfc::ext::PrefixEasting(zone, easting);
}

int qncSplitEasting(double prefixed, int* zone, double* easting, int* width) {
  const auto split = quarnfc::ext::SplitPrefixedEasting(prefixed);
  if (!split) return 0;
  Store(zone, split->zone);
  Store(easting, split->easting);
  Store(width, quarnfc::ext::Degrees(split->width));
  return 1;
}
