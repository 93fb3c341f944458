// The coordinate systems that the commands of qn geo know by name, code or file.
#ifndef QN_GEO_SYSTEM_H_
#define QN_GEO_SYSTEM_H_

#include <quarnfc/geographic.h>
#include <quarnfc/projected.h>

#include <optional>
#include <string>
#include <vector>

#include "library_buffer.h"

namespace qn {

struct Point {
  double x;  // longitude or easting
  double y;  // latitude or northing
};

class GeoSystem {
 public:
  enum class Kind { kLonLat, kWebMercator, kProjected };

  // From "lonlat", "mercator", an EPSG code ("4547", "EPSG:4547"), a UTM zone ("utm50", "utm50s")
  // or the path of a file with a PROJCS text. Throws Failure or UsageError.
  explicit GeoSystem(const std::string& description);

  Kind GetKind() const { return kind_; }
  const CQNProCoordinateSystem& Projected() const { return projected_; }

  Point ToLonLat(const Point& point) const;
  Point FromLonLat(const Point& point) const;

  // Decimals that show a coordinate of this system to the tenth of a millimetre.
  int Decimals() const { return kind_ == Kind::kLonLat ? 9 : 4; }

 private:
  Kind kind_;
  CQNProCoordinateSystem projected_;
};

// Sets system from a text of WKT; the library's message when it is refused.
template <class System>
std::optional<std::string> ReadWkt(System& system, const std::string& wkt) {
  char* message = nullptr;
  if (system.SetFromWKTA(wkt.c_str(), &message)) return std::nullopt;
  return LibraryBuffer<char>(message).get();
}

// The EPSG codes whose definition in this library equals the system, in rising order.
std::vector<int> FindEpsgCodes(const CQNProCoordinateSystem& system);

}  // namespace qn

#endif  // QN_GEO_SYSTEM_H_
