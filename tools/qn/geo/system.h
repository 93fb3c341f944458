// SPDX-License-Identifier: MIT
// The coordinate systems that the commands of qn geo know by name, code or file.
#ifndef QN_GEO_SYSTEM_H_
#define QN_GEO_SYSTEM_H_

#include <quarnfc/ext/transverse_mercator.h>
#include <quarnfc/geographic.h>
#include <quarnfc/projected.h>

#include <optional>
#include <string>
#include <vector>

#include "qn/geo/point.h"
#include "qn/library_buffer.h"

namespace qn {

// What the user has said about systems beside their names.
struct GeoSystemOptions {
  bool as_library = false;  // the library's own parameters and series
  // The system "tm".
  std::optional<double> central_meridian;
  double false_easting = 500000;
  double false_northing = 0;
  double scale_factor = 1;
  std::string ellipsoid = "cgcs2000";
};

class GeoSystem {
 public:
  enum class Kind { kLonLat, kWebMercator, kProjected };

  // From "lonlat", "mercator", the name of a datum ("cgcs2000"), an EPSG code ("4547",
  // "EPSG:4547"), a UTM zone ("utm50", "utm50s"), "tm", or the path of a file with a PROJCS or
  // GEOGCS text. Throws Failure or UsageError.
  explicit GeoSystem(const std::string& description, const GeoSystemOptions& options = {});

  Kind GetKind() const { return kind_; }
  bool IsLonLat() const { return kind_ == Kind::kLonLat; }

  // The library's object with the parameters of a projected system.
  const CQNProCoordinateSystem& Projected() const { return library_; }

  // "" when the system takes that of its counterpart.
  const std::string& Datum() const { return datum_; }
  const quarnfc::ext::Ellipsoid& GetEllipsoid() const { return ellipsoid_; }

  double CentralMeridian() const { return parameters_.central_meridian; }

  // The number of the Gauss-Krueger zone around the central meridian; 0 for systems that are none.
  int Zone() const { return zone_; }

  // Whether the false easting has the number of the zone in front.
  bool HasZonePrefix() const { return parameters_.false_easting >= 1e6; }

  // Degrees from the central meridian up to which points are taken without --force.
  double FarthestFromMeridian() const { return as_library_ ? 10 : 30; }

  Point ToLonLat(const Point& point) const;
  Point FromLonLat(const Point& point) const;

  // Decimals that show a coordinate of this system to the tenth of a millimetre.
  int Decimals() const { return kind_ == Kind::kLonLat ? 9 : 4; }

 private:
  bool TakeName(const std::string& name, const GeoSystemOptions& options);
  void TakeCode(int code);
  void TakeLibraryCode(int code);
  void TakeUtm(int zone);
  void TakeWkt(const std::string& path);
  void TakeCustom(const GeoSystemOptions& options);
  void TakeLibrary(const CQNProCoordinateSystem& system);
  void Project();
  void FindZone(int width);

  Kind kind_ = Kind::kProjected;
  bool as_library_ = false;
  CQNProCoordinateSystem library_;
  std::string datum_;
  quarnfc::ext::Ellipsoid ellipsoid_;
  quarnfc::ext::TransverseMercatorParameters parameters_;
  std::optional<quarnfc::ext::TransverseMercator> projection_;
  double unit_ = 1;
  int zone_ = 0;
};

// Sets system from a text of WKT by the library's reader; its message when it is refused.
template <class System>
std::optional<std::string> ReadWktAsLibrary(System& system, const std::string& wkt) {
  char* message = nullptr;
  if (system.SetFromWKTA(wkt.c_str(), &message)) return std::nullopt;
  return LibraryBuffer<char>(message).get();
}

// The EPSG codes whose definition in this library equals the system, in rising order.
std::vector<int> FindEpsgCodes(const CQNProCoordinateSystem& system);

}  // namespace qn

#endif  // QN_GEO_SYSTEM_H_
