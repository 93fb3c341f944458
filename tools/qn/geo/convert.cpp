// SPDX-License-Identifier: MIT
// qn geo convert: points of the command line, of CSV files and of lines.
#include "qn/console.h"
#include "qn/csv/input.h"
#include "qn/errors.h"
#include "qn/exit_code.h"
#include "qn/geo/commands.h"
#include "qn/geo/conversion.h"
#include "qn/geo/rows.h"
#include "qn/geo/system.h"
#include "qn/options.h"
#include "qn/output.h"

namespace qn::geo {
namespace {

double NumberOption(const Options& options, const char* name, double fallback) {
  if (!options.Has(name)) return fallback;
  double number = 0;
  if (!ReadNumber(options.Value(name), number)) {
    throw UsageError(std::string("--") + name + " takes a number");
  }
  return number;
}

GeoSystemOptions SystemOptions(const Options& options) {
  GeoSystemOptions system;
  system.as_library = options.Has("as-library");
  if (options.Has("cm")) system.central_meridian = NumberOption(options, "cm", 0);
  system.false_easting = NumberOption(options, "fe", system.false_easting);
  system.false_northing = NumberOption(options, "fn", system.false_northing);
  system.scale_factor = NumberOption(options, "k", system.scale_factor);
  system.ellipsoid = options.Value("ellipsoid", system.ellipsoid);
  return system;
}

ConversionOptions ChecksFrom(const Options& options) {
  ConversionOptions checks;
  checks.force = options.Has("force");
  checks.no_datum_shift = options.Has("no-datum-shift");
  checks.zone_prefix = options.Has("zone-prefix");
  if (options.Has("shift")) {
    checks.shift = ReadShift(options.Value("shift"), options.Value("rotation"));
  }
  return checks;
}

Point PointFrom(const std::string& argument, const PointFormat& format) {
  const std::size_t comma = argument.find(',');
  const bool east_first = format.order.value_or(AxisOrder::kEastNorth) == AxisOrder::kEastNorth;
  Point point;
  if (comma == std::string::npos ||
      !ReadCoordinate(argument.substr(0, comma), format.degrees_in,
                      east_first ? point.x : point.y) ||
      !ReadCoordinate(argument.substr(comma + 1), format.degrees_in,
                      east_first ? point.y : point.x)) {
    throw UsageError("'" + DisplayText(argument) + "' is no point; write X,Y");
  }
  return point;
}

std::string TextOf(const Point& point, const PointFormat& format) {
  if (format.json) return "{" + PointMembers(point, format.decimals, format.degrees_out) + "}";
  return FormatPoint(point, format.decimals, format.order.value_or(AxisOrder::kEastNorth));
}

int ConvertAll(const Options& options, const PointFormat& format, Conversion& conversion) {
  const PointConversion convert = [&](const Point& point) { return conversion(point); };
  Output output(options.Value("output", "-"));
  BadRows bad(options.Has("strict"));
  if (options.Has("csv")) {
    TextStream input(options.Value("csv"));
    ConvertCsv(input, output, {options.Value("x"), options.Value("y"), DelimiterFrom(options)},
               format, convert, bad);
  } else if (options.Positional().empty()) {
    TextStream input("-");
    ConvertLines(input, output, format, convert, bad);
  }
  for (const std::string& each : options.Positional()) {
    const Point point = convert(PointFrom(each, format));
    output.Write(TextOf(point, format) + "\n");
  }
  output.Commit();
  return bad.Finish();
}

}  // namespace

int RunConvert(Arguments arguments) {
  const Options options(arguments, {{"from", '\0', Takes::kValue},
                                    {"to", '\0', Takes::kValue},
                                    {"csv", '\0', Takes::kValue},
                                    {"x", '\0', Takes::kValue},
                                    {"y", '\0', Takes::kValue},
                                    {"delimiter", 'd', Takes::kValue},
                                    {"order", '\0', Takes::kValue},
                                    {"digits", '\0', Takes::kValue},
                                    {"cm", '\0', Takes::kValue},
                                    {"fe", '\0', Takes::kValue},
                                    {"fn", '\0', Takes::kValue},
                                    {"k", '\0', Takes::kValue},
                                    {"ellipsoid", '\0', Takes::kValue},
                                    {"shift", '\0', Takes::kValue},
                                    {"rotation", '\0', Takes::kValue},
                                    {"no-datum-shift"},
                                    {"zone-prefix"},
                                    {"as-library"},
                                    {"force"},
                                    {"strict"},
                                    {"json"},
                                    {"output", 'o', Takes::kValue}});
  if (!options.Has("from") || !options.Has("to")) throw UsageError("--from and --to are needed");
  options.ExpectPositional(0, options.Has("csv") ? 0 : 1'000'000);
  if (options.Has("csv") && options.Has("json")) {
    throw UsageError("--json is for points and lines; the rows of a CSV file stay CSV");
  }
  const GeoSystem from(options.Value("from"), SystemOptions(options));
  const GeoSystem to(options.Value("to"), SystemOptions(options));
  PointFormat format;
  format.degrees_in = from.IsLonLat();
  format.degrees_out = to.IsLonLat();
  format.decimals = static_cast<int>(options.Number("digits", to.Decimals(), 0, 15));
  format.json = options.Has("json");
  if (options.Has("order")) format.order = AxisOrderFrom(options.Value("order"));
  Conversion conversion(from, to, ChecksFrom(options));
  const int code = ConvertAll(options, format, conversion);
  if (const std::string notes = conversion.Notes(); !notes.empty()) PrintNote(notes);
  return code;
}

}  // namespace qn::geo
