// SPDX-License-Identifier: MIT
// qn geo wkt and info: systems as text.
#include <quarnfc/ext/json_text_edit.h>
#include <quarnfc/geographic.h>
#include <quarnfc/projected.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string_view>
#include <vector>

#include "qn/console.h"
#include "qn/errors.h"
#include "qn/exit_code.h"
#include "qn/geo/commands.h"
#include "qn/geo/format.h"
#include "qn/geo/system.h"
#include "qn/geo/wkt_system.h"
#include "qn/input_file.h"
#include "qn/library_buffer.h"
#include "qn/options.h"
#include "qn/text/encoding.h"

namespace qn::geo {
namespace {

using Geo = CQNGeoCoordinateSystem;
using Pro = CQNProCoordinateSystem;
using quarnfc::ext::QuoteJson;

// --- wkt --------------------------------------------------------------------------------------

struct NamedSystem {
  const char* name;
  const Geo* system;
};

const NamedSystem kNamedSystems[] = {{"beijing54", &Geo::Beijing54},
                                     {"xian80", &Geo::XiAn80},
                                     {"wgs84", &Geo::WGS84},
                                     {"cgcs2000", &Geo::CGCS2000}};

}  // namespace

int RunWkt(Arguments arguments) {
  const Options options(arguments, {{"as-library"}});
  options.ExpectPositional(1, 1);
  const std::string& wanted = options.Positional()[0];
  for (const NamedSystem& named : kNamedSystems) {
    if (wanted != named.name) continue;
    PrintLine(LibraryBuffer<char>(named.system->CreateWKT()).get());
    return kSuccess;
  }
  GeoSystemOptions how;
  how.as_library = options.Has("as-library");
  const GeoSystem system(wanted, how);
  if (system.GetKind() != GeoSystem::Kind::kProjected) {
    throw UsageError("'" + DisplayText(wanted) + "' has no WKT in this library");
  }
  PrintLine(LibraryBuffer<char>(system.Projected().CreateWKT()).get());
  return kSuccess;
}

namespace {

// --- info -------------------------------------------------------------------------------------

// Something that is known about a system.
struct Fact {
  enum Kind { kNumber, kText, kListed };  // kListed: numbers of one key, an array for programs

  const char* label;  // for people
  const char* key;    // for programs
  std::string value;
  const char* unit = "";  // for people; programs get metres and degrees
  Kind kind = kNumber;
};

using Facts = std::vector<Fact>;

Fact Metres(const char* label, const char* key, double value) {
  return {label, key, Format("%.4f", value), " m"};
}

void AddEllipsoid(const Geo& geo, Facts& facts) {
  const auto named =
      std::find_if(std::begin(kNamedSystems), std::end(kNamedSystems),
                   [&](const NamedSystem& candidate) { return *candidate.system == geo; });
  const bool known = named != std::end(kNamedSystems);
  facts.push_back({"ellipsoid", "ellipsoid", known ? named->name : "none of the predefined ones",
                   "", Fact::kText});
  facts.push_back(Metres("semi-major axis", "semi_major_axis", geo.GetSemiMajorAxis()));
  facts.push_back(Metres("semi-minor axis", "semi_minor_axis", geo.GetSemiMinorAxis()));
  facts.push_back(
      {"inverse flattening", "inverse_flattening", Format("%.9f", geo.GetInverseFlattening())});
}

void AddProjection(const Pro& system, Facts& facts) {
  facts.push_back(
      {"central meridian", "central_meridian", Format("%.9g", system.GetCentralMeridian())});
  facts.push_back(Metres("false easting", "false_easting", system.GetFalseEasting()));
  facts.push_back(Metres("false northing", "false_northing", system.GetFalseNorthing()));
  facts.push_back({"scale factor", "scale_factor", Format("%.10g", system.GetScaleFactor())});
  if (const int zone = system.GetUTMCode(); zone != 0) {
    facts.push_back({"UTM zone", "utm_zone",
                     Format("%d %s", std::abs(zone), zone < 0 ? "south" : "north"), "",
                     Fact::kText});
  }
  for (const int code : FindEpsgCodes(system)) {
    facts.push_back({"equals EPSG code", "equals_epsg_codes", std::to_string(code),
                     " (as this library defines it)", Fact::kListed});
  }
}

// The library passes over what it does not honour.
void AddWhatConvertSays(const std::string& wkt, Facts& facts) {
  try {
    facts.push_back({"datum", "datum", ReadWktSystem(wkt).datum, "", Fact::kText});
  } catch (const Failure& failure) {
    facts.push_back(
        {"qn geo convert      refuses it:", "convert_refuses", failure.what(), "", Fact::kText});
  }
}

void PrintForPeople(const Facts& facts) {
  for (const Fact& fact : facts) PrintLine(Format("%-19s ", fact.label) + fact.value + fact.unit);
}

// A number without end is null: the semi-minor axis of a sphere (inverse flattening 0) is
// -infinity.
std::string JsonOf(const Fact& fact) {
  if (fact.kind == Fact::kText) return QuoteJson(fact.value);
  const bool finite = fact.value.find_first_not_of("+-.0123456789e") == std::string::npos;
  return finite ? fact.value : "null";
}

void PrintForPrograms(const Facts& facts) {
  std::string text;
  std::string_view open_list;
  for (const Fact& fact : facts) {
    const std::string value = JsonOf(fact);
    if (fact.key == open_list) {
      text.insert(text.size() - 1, "," + value);
      continue;
    }
    text += (text.empty() ? "{" : ",") + QuoteJson(fact.key) + ":";
    text += fact.kind == Fact::kListed ? "[" + value + "]" : value;
    open_list = fact.kind == Fact::kListed ? fact.key : "";
  }
  PrintLine(text + "}");
}

}  // namespace

int RunInfo(Arguments arguments) {
  const Options options(arguments, {{"json"}});
  options.ExpectPositional(1, 1);
  const std::string& path = options.Positional()[0];
  const std::string wkt = DecodeDocument(ReadInput(path), DisplayText(path)).text;
  const std::string ansi = EncodeText(wkt, {Charset::kAnsi, false}, true);
  Geo geo;
  if (const auto message = ReadWktAsLibrary(geo, ansi)) throw Failure(FromLibrary(*message));
  Facts facts;
  AddEllipsoid(geo, facts);
  Pro projected;
  if (const auto refused = ReadWktAsLibrary(projected, ansi)) {
    facts.push_back(
        {"not a projected system here:", "not_projected", FromLibrary(*refused), "", Fact::kText});
  } else {
    AddProjection(projected, facts);
  }
  AddWhatConvertSays(wkt, facts);
  (options.Has("json") ? PrintForPrograms : PrintForPeople)(facts);
  return kSuccess;
}

}  // namespace qn::geo
