// SPDX-License-Identifier: MIT
#include "qn/geo/conversion.h"

#include <quarnfc/ext/zones.h>

#include <cmath>
#include <cstdio>
#include <vector>

#include "qn/errors.h"

namespace qn {
namespace {

namespace ext = quarnfc::ext;

// Where a 6-degree zone ends.
constexpr double kNearMeridian = 3.0;

std::string Degrees(double value) {
  char text[40];
  std::snprintf(text, sizeof(text), "%.6g", value);
  return text;
}

double FromMeridian(const GeoSystem& system, const Point& degrees) {
  return std::abs(std::remainder(degrees.x - system.CentralMeridian(), 360.0));
}

// WGS 84 and CGCS2000 agree to some centimetres and count as one.
bool SameDatum(const std::string& a, const std::string& b) {
  const auto family = [](const std::string& name) { return name == "WGS 84" ? "CGCS2000" : name; };
  return a.empty() || b.empty() || family(a) == family(b);
}

}  // namespace

Conversion::Conversion(const GeoSystem& from, const GeoSystem& to, ConversionOptions options)
    : from_(from), to_(to), options_(options) {
  if (options_.zone_prefix && (to_.Zone() == 0 || to_.HasZonePrefix())) {
    throw UsageError("--zone-prefix needs a Gauss-Krueger system without prefix as target");
  }
  if (options_.shift && (from_.Datum().empty() || to_.Datum().empty())) {
    throw UsageError("--shift needs systems with a datum: lonlat has none, but cgcs2000 has");
  }
  if (options_.shift || options_.no_datum_shift || SameDatum(from_.Datum(), to_.Datum())) return;
  throw Failure("the datums " + from_.Datum() + " and " + to_.Datum() +
                " differ by up to hundreds of metres: give --shift, or --no-datum-shift to keep"
                " longitude and latitude");
}

Point Conversion::operator()(const Point& point) {
  const Point plane = WithoutZonePrefix(point);
  const Point degrees = from_.ToLonLat(plane);
  CheckDegrees(degrees);
  CheckDistance(from_, degrees);
  if (!from_.IsLonLat()) CheckReturn(plane, degrees);
  const Point shifted = Shifted(degrees);
  CheckDistance(to_, shifted);
  Point result = to_.FromLonLat(shifted);
  if (!std::isfinite(result.x) || !std::isfinite(result.y)) {
    throw Failure("the point has no place in the target system");
  }
  if (options_.zone_prefix) result.x = ext::PrefixEasting(to_.Zone(), result.x);
  return result;
}

// Takes the zone number off an easting in a system without it; it must be that of the system.
Point Conversion::WithoutZonePrefix(const Point& point) const {
  if (from_.Zone() == 0 || options_.force) return point;
  if (from_.HasZonePrefix()) {
    if (std::abs(point.x) >= 1e6) return point;
    throw Failure("the easting " + Degrees(point.x) + " lacks the zone number that the system has");
  }
  const auto split = ext::SplitPrefixedEasting(point.x);
  if (!split) return point;
  if (ext::CentralMeridian(split->zone, split->width) != from_.CentralMeridian()) {
    throw Failure("the easting has the zone number " + std::to_string(split->zone) +
                  ", whose central meridian is " +
                  Degrees(ext::CentralMeridian(split->zone, split->width)) +
                  "; that of the system is " + Degrees(from_.CentralMeridian()));
  }
  return {split->easting, point.y};
}

void Conversion::CheckDegrees(const Point& degrees) const {
  if (!std::isfinite(degrees.x) || !std::isfinite(degrees.y)) {
    throw Failure("the coordinates lie outside the system");
  }
  if (std::abs(degrees.y) > 90) {
    const bool swapped = from_.IsLonLat() && std::abs(degrees.x) <= 90;
    throw Failure("there is no latitude " + Degrees(degrees.y) +
                  (swapped ? " (--order ne if it comes first)" : ""));
  }
  if (degrees.x < -180 || degrees.x > 360) {
    throw Failure("there is no longitude " + Degrees(degrees.x));
  }
}

void Conversion::CheckDistance(const GeoSystem& system, const Point& degrees) {
  // Where the square of Web Mercator ends; beyond it northings grow without limit.
  constexpr double kMercatorEnd = 85.06;
  if (system.GetKind() == GeoSystem::Kind::kWebMercator && !options_.force &&
      std::abs(degrees.y) > kMercatorEnd) {
    throw Failure("Web Mercator ends at the latitude 85.06 (--force converts all the same)");
  }
  if (system.GetKind() != GeoSystem::Kind::kProjected) return;
  const double distance = FromMeridian(system, degrees);
  if (distance <= kNearMeridian) return;
  if (distance > system.FarthestFromMeridian() && !options_.force) {
    throw Failure("the point lies " + Degrees(distance) + " degrees from the central meridian " +
                  Degrees(system.CentralMeridian()) + " (--force converts all the same)");
  }
  ++far_points_;
  farthest_ = std::max(farthest_, distance);
}

// What does not come back is no point of the system.
void Conversion::CheckReturn(const Point& plane, const Point& degrees) const {
  constexpr double kNear = 0.1;  // metres
  if (options_.force) return;
  const Point back = from_.FromLonLat(degrees);
  if (std::hypot(back.x - plane.x, back.y - plane.y) <= kNear) return;
  throw Failure("the coordinates lie outside the system");
}

Point Conversion::Shifted(const Point& degrees) const {
  if (!options_.shift) return degrees;
  const ext::LonLatHeight at = ext::ShiftDatum(from_.GetEllipsoid(), {degrees.x, degrees.y, 0},
                                               *options_.shift, to_.GetEllipsoid());
  return {at.lon, at.lat};
}

std::string Conversion::Notes() const {
  if (far_points_ == 0) return "";
  return std::to_string(far_points_) + (far_points_ == 1 ? " point lies" : " points lie") +
         " more than 3 degrees from the central meridian, up to " + Degrees(farthest_);
}

quarnfc::ext::Helmert7 ReadShift(const std::string& numbers, const std::string& rotation) {
  std::vector<double> values;
  std::size_t begin = 0;
  for (std::size_t end = 0; end != std::string::npos; begin = end + 1) {
    end = numbers.find(',', begin);
    double value = 0;
    if (!ReadNumber(numbers.substr(begin, end == std::string::npos ? end : end - begin), value)) {
      throw UsageError("--shift takes three or seven numbers separated by commas");
    }
    values.push_back(value);
  }
  if (values.size() != 3 && values.size() != 7) {
    throw UsageError("--shift takes three or seven numbers separated by commas");
  }
  const bool frame = rotation == "coordinate-frame";
  if (values.size() == 7 && !frame && rotation != "position-vector") {
    throw UsageError(
        "--rotation is coordinate-frame or position-vector, and seven parameters"
        " need it");
  }
  values.resize(7);
  return {
      {values[0], values[1], values[2]},
      {values[3], values[4], values[5]},
      values[6],
      frame ? ext::RotationConvention::kCoordinateFrame : ext::RotationConvention::kPositionVector};
}

}  // namespace qn
