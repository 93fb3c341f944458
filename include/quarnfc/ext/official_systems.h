// SPDX-License-Identifier: MIT
// The coordinate systems of China, WGS 84 and UTM by EPSG code, with their official parameters.
//
// It stands beside CQNProCoordinateSystem::setByEPSGCode, whose table leaves the zone number out of
// the false easting, gives 2422 to 2442 the ellipsoid of CGCS2000, has the southern UTM zones at
// 32501 and takes the shortened flattening of WGS 84. Here every code has what the EPSG Dataset
// (IOGP, version 10) says.
//
//   4214, 4610, 4490, 4326   Beijing 1954, Xian 1980, CGCS2000, WGS 84: longitude and latitude
//   3857                     Web Mercator
//   2327-2337, 21413-21423, 4491-4501    6 degrees, zone number in front of the easting
//   2338-2348, 21453-21463, 4502-4512    6 degrees
//   2349-2369, 2401-2421, 4513-4533      3 degrees, zone number in front of the easting
//   2370-2390, 2422-2442, 4534-4554      3 degrees
//   32601-32660, 32701-32760             UTM north and south
//
// (Xian 1980, Beijing 1954 and CGCS2000 in this order.) Header-only, C++17, in the namespace
// quarnfc::ext. Any thread may call.
//
// Example:
//   using namespace quarnfc::ext;
//   const auto system = FindOfficialSystem(4526);  // CGCS2000, 3 degrees, zone 38
//   const EastNorth plane = system->Projection().Forward({114.3055, 30.5928});
//   std::lround(plane.east);    // == 38529300
#ifndef QUARNFC_EXT_OFFICIAL_SYSTEMS_H_
#define QUARNFC_EXT_OFFICIAL_SYSTEMS_H_

#include <quarnfc/ext/coordinates.h>
#include <quarnfc/ext/transverse_mercator.h>

#include <optional>

namespace quarnfc::ext {

enum class SystemKind { kGeographic, kTransverseMercator, kWebMercator };

// A coordinate system that an EPSG code stands for.
struct OfficialSystem {
  int code = 0;
  SystemKind kind = SystemKind::kGeographic;
  const char* datum = "";  // "Beijing 1954", "Xian 1980", "CGCS2000", "WGS 84"
  Ellipsoid ellipsoid;
  TransverseMercatorParameters parameters;  // used for kTransverseMercator only
  int zone = 0;                             // in front of the easting; 0 for systems without

  // The projection of a kTransverseMercator system.
  TransverseMercator Projection() const { return TransverseMercator(ellipsoid, parameters); }
};

namespace detail {

struct OfficialDatum {
  const char* name;
  Ellipsoid ellipsoid;
};

inline constexpr OfficialDatum kBeijing1954Datum{"Beijing 1954", kKrassowsky1940};
inline constexpr OfficialDatum kXian1980Datum{"Xian 1980", kIag1975};
inline constexpr OfficialDatum kCgcs2000Datum{"CGCS2000", kCgcs2000};
inline constexpr OfficialDatum kWgs84Datum{"WGS 84", kWgs84};

struct GeographicCode {
  int code;
  const OfficialDatum* datum;
};

inline constexpr GeographicCode kGeographicCodes[] = {{4214, &kBeijing1954Datum},
                                                      {4610, &kXian1980Datum},
                                                      {4490, &kCgcs2000Datum},
                                                      {4326, &kWgs84Datum}};

// A run of codes, one for each zone from the central meridian 75 to 135.
struct GaussCodes {
  int first;
  int last;
  const OfficialDatum* datum;
  int width;       // degrees
  int first_zone;  // in front of the easting; 0 where it is left out
};

inline constexpr GaussCodes kGaussCodes[] = {
    {2327, 2337, &kXian1980Datum, 6, 13},      {2338, 2348, &kXian1980Datum, 6, 0},
    {2349, 2369, &kXian1980Datum, 3, 25},      {2370, 2390, &kXian1980Datum, 3, 0},
    {2401, 2421, &kBeijing1954Datum, 3, 25},   {2422, 2442, &kBeijing1954Datum, 3, 0},
    {21413, 21423, &kBeijing1954Datum, 6, 13}, {21453, 21463, &kBeijing1954Datum, 6, 0},
    {4491, 4501, &kCgcs2000Datum, 6, 13},      {4502, 4512, &kCgcs2000Datum, 6, 0},
    {4513, 4533, &kCgcs2000Datum, 3, 25},      {4534, 4554, &kCgcs2000Datum, 3, 0},
};

inline OfficialSystem MakeSystem(int code, SystemKind kind, const OfficialDatum& datum) {
  OfficialSystem system;
  system.code = code;
  system.kind = kind;
  system.datum = datum.name;
  system.ellipsoid = datum.ellipsoid;
  return system;
}

inline OfficialSystem MakeGauss(int code, const GaussCodes& codes) {
  const int index = code - codes.first;
  OfficialSystem system = MakeSystem(code, SystemKind::kTransverseMercator, *codes.datum);
  system.zone = codes.first_zone == 0 ? 0 : codes.first_zone + index;
  system.parameters = {75.0 + codes.width * index, 0.0, system.zone * 1000000.0 + 500000.0, 0.0,
                       1.0};
  return system;
}

inline OfficialSystem MakeUtm(int code, int zone, double false_northing) {
  OfficialSystem system = MakeSystem(code, SystemKind::kTransverseMercator, kWgs84Datum);
  system.parameters = {zone * 6.0 - 183.0, 0.0, 500000.0, false_northing, 0.9996};
  return system;
}

}  // namespace detail

// The system of an EPSG code; nothing for a code that is not in the table above.
inline std::optional<OfficialSystem> FindOfficialSystem(int code) {
  for (const detail::GeographicCode& geographic : detail::kGeographicCodes) {
    if (geographic.code == code) {
      return detail::MakeSystem(code, SystemKind::kGeographic, *geographic.datum);
    }
  }
  for (const detail::GaussCodes& codes : detail::kGaussCodes) {
    if (code >= codes.first && code <= codes.last) return detail::MakeGauss(code, codes);
  }
  if (code > 32600 && code <= 32660) return detail::MakeUtm(code, code - 32600, 0.0);
  if (code > 32700 && code <= 32760) return detail::MakeUtm(code, code - 32700, 10000000.0);
  if (code == 3857) return detail::MakeSystem(code, SystemKind::kWebMercator, detail::kWgs84Datum);
  return std::nullopt;
}

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_OFFICIAL_SYSTEMS_H_
