// SPDX-License-Identifier: MIT
// qn geo estimate: the parameters between two systems from points known in both.
#include <quarnfc/ext/json_text_edit.h>
#include <quarnfc/ext/parameter_estimation.h>

#include <algorithm>
#include <charconv>
#include <utility>

#include "qn/console.h"
#include "qn/errors.h"
#include "qn/exit_code.h"
#include "qn/geo/commands.h"
#include "qn/geo/common_points.h"
#include "qn/geo/format.h"
#include "qn/geo/system.h"
#include "qn/input_file.h"
#include "qn/options.h"
#include "qn/text/encoding.h"

namespace qn::geo {
namespace {

namespace ext = quarnfc::ext;

using Rows = std::vector<CommonPointRow>;
using Fields = std::vector<std::pair<const char*, double>>;

// What was found, for people and for programs.
struct Findings {
  std::string method;
  Fields parameters;              // with what follows from them
  std::vector<Fields> residuals;  // a point each, metres
  double standard_deviation = 0;
  std::string hint;  // for people
};

// Digits that read back as the same number.
std::string Shortest(double number) {
  char text[32];
  return {text, std::to_chars(text, text + sizeof(text), number).ptr};
}

[[noreturn]] void NotDetermined() {
  throw Failure("the points do not determine the parameters: too few, or on one line");
}

// --- the plane ----------------------------------------------------------------------------------

ext::EastNorth PlanePoint(const CommonPointRow& row, std::size_t first, bool north_first) {
  const double one = row.numbers[first];
  const double two = row.numbers[first + 1];
  return north_first ? ext::EastNorth{two, one} : ext::EastNorth{one, two};
}

Findings EstimatePlane(const Rows& rows, bool north_first) {
  std::vector<ext::CommonPlanePoint> points;
  for (const CommonPointRow& row : rows) {
    points.push_back({PlanePoint(row, 0, north_first), PlanePoint(row, 2, north_first)});
  }
  const auto found = ext::EstimateSimilarity(points);
  if (!found) NotDetermined();
  const ext::PlaneSimilarity& similarity = found->parameters;
  Findings findings;
  findings.method = "similarity";
  findings.parameters = {{"east", similarity.east},     {"north", similarity.north},
                         {"a", similarity.a},           {"b", similarity.b},
                         {"scale", similarity.Scale()}, {"rotation", similarity.Rotation()}};
  for (const ext::EastNorth& each : found->residuals) {
    findings.residuals.push_back({{"east", each.east}, {"north", each.north}});
  }
  findings.standard_deviation = found->standard_deviation;
  findings.hint = "E' = east + a E - b N, N' = north + b E + a N; metres, degrees";
  return findings;
}

// --- space --------------------------------------------------------------------------------------

// Longitude, latitude and height on the system's ellipsoid where there is a system.
ext::Cartesian SpacePoint(const CommonPointRow& row, std::size_t first, const GeoSystem* system) {
  const double* const at = &row.numbers[first];
  if (system == nullptr) return {at[0], at[1], at[2]};
  return ext::ToCartesian(system->GetEllipsoid(), {at[0], at[1]}, at[2]);
}

std::string ShiftOption(const ext::Helmert7& shift, const std::string& rotation) {
  std::string list;
  for (const double number :
       {shift.translation.x, shift.translation.y, shift.translation.z, shift.rotation.x,
        shift.rotation.y, shift.rotation.z, shift.scale_ppm}) {
    list += (list.empty() ? "" : ",") + Format("%.6f", number);
  }
  return "for qn geo convert: --shift " + list + " --rotation " + rotation;
}

Findings EstimateSpace(const Rows& rows, const GeoSystem* from, const GeoSystem* to,
                       const std::string& rotation) {
  std::vector<ext::CommonPoint> points;
  for (const CommonPointRow& row : rows) {
    points.push_back({SpacePoint(row, 0, from), SpacePoint(row, 3, to)});
  }
  const auto convention = rotation == "position-vector" ? ext::RotationConvention::kPositionVector
                                                        : ext::RotationConvention::kCoordinateFrame;
  const auto found = ext::EstimateHelmert(points, convention);
  if (!found) NotDetermined();
  const ext::Helmert7& shift = found->parameters;
  Findings findings;
  findings.method = "helmert";
  findings.parameters = {{"dx", shift.translation.x}, {"dy", shift.translation.y},
                         {"dz", shift.translation.z}, {"rx", shift.rotation.x},
                         {"ry", shift.rotation.y},    {"rz", shift.rotation.z},
                         {"ppm", shift.scale_ppm}};
  for (const ext::Cartesian& each : found->residuals) {
    findings.residuals.push_back({{"x", each.x}, {"y", each.y}, {"z", each.z}});
  }
  findings.standard_deviation = found->standard_deviation;
  findings.hint = ShiftOption(shift, rotation);
  return findings;
}

// --- output -------------------------------------------------------------------------------------

void PrintForPeople(const Findings& findings, const Rows& rows) {
  PrintLine(findings.method + " from " + std::to_string(rows.size()) + " points");
  for (const auto& [name, value] : findings.parameters) {
    PrintLine(Format("%-10s %.10f", name, value));
  }
  PrintLine(Format("standard deviation of a coordinate %.4f m", findings.standard_deviation));
  PrintLine(findings.hint);
  PrintLine("residuals, given minus computed, in metres:");
  for (std::size_t i = 0; i < rows.size(); ++i) {
    std::string line = "  " + rows[i].name;
    for (const auto& [name, value] : findings.residuals[i])
      line += Format("  %s %.4f", name, value);
    PrintLine(line);
  }
}

std::string JsonMembers(const Fields& fields) {
  std::string text;
  for (const auto& [name, value] : fields) {
    text += (text.empty() ? "" : ",") + ext::QuoteJson(name) + ":" + Shortest(value);
  }
  return text;
}

void PrintForPrograms(const Findings& findings, const Rows& rows, const std::string& rotation) {
  std::string text = "{\"method\":" + ext::QuoteJson(findings.method) + ",";
  if (findings.method == "helmert") text += "\"convention\":" + ext::QuoteJson(rotation) + ",";
  text += "\"parameters\":{" + JsonMembers(findings.parameters) +
          "},\"standard_deviation\":" + Shortest(findings.standard_deviation) + ",\"residuals\":[";
  for (std::size_t i = 0; i < rows.size(); ++i) {
    text += (i == 0 ? "{\"name\":" : ",{\"name\":") + ext::QuoteJson(rows[i].name) + "," +
            JsonMembers(findings.residuals[i]) + "}";
  }
  PrintLine(text + "]}");
}

std::string RotationFrom(const Options& options) {
  const std::string rotation = options.Value("rotation", "coordinate-frame");
  if (rotation != "coordinate-frame" && rotation != "position-vector") {
    throw UsageError("--rotation is coordinate-frame or position-vector");
  }
  return rotation;
}

Findings Estimate(const Rows& rows, const Options& options, const std::string& rotation) {
  const bool degrees = options.Has("from");
  if (degrees != options.Has("to")) throw UsageError("give both --from and --to, or neither");
  if (rows.empty()) NotDetermined();
  if (rows[0].numbers.size() == 4) {
    if (degrees) throw UsageError("--from and --to are for points with heights");
    const bool north_first =
        options.Has("order") && AxisOrderFrom(options.Value("order")) == AxisOrder::kNorthEast;
    return EstimatePlane(rows, north_first);
  }
  if (!degrees) return EstimateSpace(rows, nullptr, nullptr, rotation);
  const GeoSystem from(options.Value("from"));
  const GeoSystem to(options.Value("to"));
  if (!from.IsLonLat() || !to.IsLonLat()) {
    throw UsageError("--from and --to take datums, such as beijing54 and cgcs2000");
  }
  return EstimateSpace(rows, &from, &to, rotation);
}

}  // namespace

int RunEstimate(Arguments arguments) {
  const Options options(arguments, {{"from", '\0', Takes::kValue},
                                    {"to", '\0', Takes::kValue},
                                    {"order", '\0', Takes::kValue},
                                    {"rotation", '\0', Takes::kValue},
                                    {"json"}});
  options.ExpectPositional(1, 1);
  const std::string& path = options.Positional()[0];
  const std::string rotation = RotationFrom(options);
  const std::string name = path == "-" ? "standard input" : DisplayText(path);
  const Rows rows = ReadCommonPoints(DecodeDocument(ReadInput(path), name).text, name);
  const Findings findings = Estimate(rows, options, rotation);
  if (options.Has("json")) {
    PrintForPrograms(findings, rows, rotation);
  } else {
    PrintForPeople(findings, rows);
  }
  return kSuccess;
}

}  // namespace qn::geo
