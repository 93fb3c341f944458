// SPDX-License-Identifier: MIT
// The conversion of a point from one system to another, with the checks that keep a wrong result
// from looking right.
#ifndef QN_GEO_CONVERSION_H_
#define QN_GEO_CONVERSION_H_

#include <quarnfc/ext/datum_shift.h>

#include <optional>
#include <string>

#include "qn/geo/point.h"
#include "qn/geo/system.h"

namespace qn {

struct ConversionOptions {
  bool force = false;           // no refusal of what is far away
  bool no_datum_shift = false;  // longitude and latitude stay the same from datum to datum
  bool zone_prefix = false;     // put the number of the zone in front of eastings
  std::optional<quarnfc::ext::Helmert7> shift;
};

class Conversion {
 public:
  // Throws Failure when the datums differ and nothing is said about it, UsageError when the options
  // do not fit the systems. The systems must outlive the conversion.
  Conversion(const GeoSystem& from, const GeoSystem& to, ConversionOptions options);

  // Throws Failure when the point is impossible, or too far from where the systems are good.
  Point operator()(const Point& point);

  // What is worth knowing after all points: how many lay far off the meridian. "" when none did.
  std::string Notes() const;

 private:
  Point WithoutZonePrefix(const Point& point) const;
  void CheckDegrees(const Point& degrees) const;
  void CheckDistance(const GeoSystem& system, const Point& degrees);
  Point Shifted(const Point& degrees) const;
  void CheckReturn(const Point& plane, const Point& degrees) const;

  const GeoSystem& from_;
  const GeoSystem& to_;
  ConversionOptions options_;
  unsigned long long far_points_ = 0;
  double farthest_ = 0;
};

// Seven numbers separated by commas: metres, arc-seconds, parts per million; or three, metres.
// rotation is "coordinate-frame" or "position-vector" and is needed for seven. Throws UsageError.
quarnfc::ext::Helmert7 ReadShift(const std::string& numbers, const std::string& rotation);

}  // namespace qn

#endif  // QN_GEO_CONVERSION_H_
