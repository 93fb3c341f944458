// SPDX-License-Identifier: MIT
// A small survey: control points that are known on an older datum and on CGCS2000 give the datum
// shift; a new point is carried over, projected into its zone with the zone's number, and the plane
// is laid at the height where lengths keep their size.
#include <quarnfc/ext/height_plane.h>
#include <quarnfc/ext/official_systems.h>
#include <quarnfc/ext/parameter_estimation.h>
#include <quarnfc/ext/sexagesimal.h>
#include <quarnfc/ext/zones.h>

#include <cmath>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

using quarnfc::ext::CombinedScale;
using quarnfc::ext::CommonPoint;
using quarnfc::ext::CompensationHeight;
using quarnfc::ext::EastNorth;
using quarnfc::ext::EstimateHelmert;
using quarnfc::ext::FindOfficialSystem;
using quarnfc::ext::GaussZone;
using quarnfc::ext::Helmert7;
using quarnfc::ext::kCgcs2000;
using quarnfc::ext::kKrassowsky1940;
using quarnfc::ext::LonLatHeight;
using quarnfc::ext::MeanRadius;
using quarnfc::ext::PlaneScale;
using quarnfc::ext::ReadAngle;
using quarnfc::ext::RotationConvention;
using quarnfc::ext::ShiftDatum;
using quarnfc::ext::SplitPrefixedEasting;
using quarnfc::ext::ToCartesian;
using quarnfc::ext::TransverseMercator;
using quarnfc::ext::WriteAngle;
using quarnfc::ext::ZoneWidth;

namespace {

// As they stand in the register of points: degrees, minutes and seconds; metres.
struct ControlPoint {
  const char* name;
  const char* lon;
  const char* lat;
  double height;
};

constexpr ControlPoint kOld[] = {{"A", "112d56'19.7\"E", "28d13'41.6\"N", 92.1},
                                 {"B", "113d05'12.3\"E", "28d02'11.0\"N", 64.8},
                                 {"C", "112d47'40.2\"E", "28d06'52.4\"N", 51.3},
                                 {"D", "113d01'00.0\"E", "28d20'30.5\"N", 110.6}};

// What was measured on CGCS2000; here it is computed from parameters that the survey does not know.
constexpr Helmert7 kUnknown = {
    {15.4, -143.7, -81.2}, {0.3, -0.2, 0.5}, 1.9, RotationConvention::kCoordinateFrame};

std::optional<LonLatHeight> Position(const ControlPoint& point) {
  LonLatHeight at;
  if (!ReadAngle(point.lon, at.lon) || !ReadAngle(point.lat, at.lat)) return std::nullopt;
  at.height = point.height;
  return at;
}

std::vector<CommonPoint> CommonPoints() {
  std::vector<CommonPoint> points;
  for (const ControlPoint& each : kOld) {
    const auto old = Position(each);
    if (!old) continue;
    const auto measured = ShiftDatum(kKrassowsky1940, *old, kUnknown, kCgcs2000);
    points.push_back({ToCartesian(kKrassowsky1940, {old->lon, old->lat}, old->height),
                      ToCartesian(kCgcs2000, {measured.lon, measured.lat}, measured.height)});
  }
  return points;
}

}  // namespace

int main() {
  const auto found = EstimateHelmert(CommonPoints(), RotationConvention::kCoordinateFrame);
  if (!found) return 1;
  const Helmert7& shift = found->parameters;
  std::printf("shift %.3f %.3f %.3f m, %.4f %.4f %.4f\", %.4f ppm, deviation %.4f m\n",
              shift.translation.x, shift.translation.y, shift.translation.z, shift.rotation.x,
              shift.rotation.y, shift.rotation.z, shift.scale_ppm, found->standard_deviation);

  const auto old = Position({"new", "112d58'00\"E", "28d11'00\"N", 75.0});
  if (!old) return 1;
  const LonLatHeight at = ShiftDatum(kKrassowsky1940, *old, shift, kCgcs2000);
  std::printf("on CGCS2000 %s %s\n", WriteAngle(at.lon, 4).c_str(), WriteAngle(at.lat, 4).c_str());

  // 4526 to 4533 carry the zone's number in front of the easting: 4526 is zone 38.
  const int zone = GaussZone(at.lon, ZoneWidth::k3Degrees);
  const auto system = FindOfficialSystem(4526);
  if (!system || system->zone != zone) return 1;
  const TransverseMercator projection = system->Projection();
  const EastNorth plane = projection.Forward({at.lon, at.lat});
  const PlaneScale scale = projection.ScaleAt({at.lon, at.lat});
  const auto split = SplitPrefixedEasting(plane.east);
  if (!split || split->zone != zone) return 1;
  std::printf("zone %d: east %.4f north %.4f, scale %.8f, convergence %.6f\n", zone, plane.east,
              plane.north, scale.factor, scale.convergence);

  const double radius = MeanRadius(kCgcs2000, at.lat);
  const double height = CompensationHeight(at.height, split->easting - 500000.0, radius);
  const double kept = CombinedScale(scale.factor, at.height - height, radius);
  std::printf("in a plane at %.1f m a kilometre is %.2f mm longer\n", height, (kept - 1) * 1e6);
  return std::abs(kept - 1) < 1e-6 ? 0 : 1;
}
