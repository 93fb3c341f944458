// SPDX-License-Identifier: MIT
// qn geo wkt and info: systems as text.
#include <quarnfc/geographic.h>
#include <quarnfc/projected.h>

#include <algorithm>
#include <cmath>
#include <iterator>

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

void PrintEllipsoid(const Geo& geo) {
  const auto named =
      std::find_if(std::begin(kNamedSystems), std::end(kNamedSystems),
                   [&](const NamedSystem& candidate) { return *candidate.system == geo; });
  PrintLine(Format("ellipsoid           %s",
                   named == std::end(kNamedSystems) ? "none of the predefined ones" : named->name));
  PrintLine(Format("semi-major axis     %.4f m", geo.GetSemiMajorAxis()));
  PrintLine(Format("semi-minor axis     %.4f m", geo.GetSemiMinorAxis()));
  PrintLine(Format("inverse flattening  %.9f", geo.GetInverseFlattening()));
}

void PrintProjection(const Pro& system) {
  PrintLine(Format("central meridian    %.9g", system.GetCentralMeridian()));
  PrintLine(Format("false easting       %.4f m", system.GetFalseEasting()));
  PrintLine(Format("false northing      %.4f m", system.GetFalseNorthing()));
  PrintLine(Format("scale factor        %.10g", system.GetScaleFactor()));
  if (const int zone = system.GetUTMCode(); zone != 0) {
    PrintLine(Format("UTM zone            %d %s", std::abs(zone), zone < 0 ? "south" : "north"));
  }
  for (const int code : FindEpsgCodes(system)) {
    PrintLine(Format("equals EPSG code    %d (as this library defines it)", code));
  }
}

// The library passes over what it does not honour.
void PrintWhatConvertSays(const std::string& wkt) {
  try {
    const WktSystem system = ReadWktSystem(wkt);
    PrintLine("datum               " + system.datum);
  } catch (const Failure& failure) {
    PrintLine(std::string("qn geo convert      refuses it: ") + failure.what());
  }
}

}  // namespace

int RunInfo(Arguments arguments) {
  const Options options(arguments, {});
  options.ExpectPositional(1, 1);
  const std::string& path = options.Positional()[0];
  const std::string wkt = DecodeDocument(ReadInput(path), DisplayText(path)).text;
  const std::string ansi = EncodeText(wkt, {Charset::kAnsi, false}, true);
  Geo geo;
  if (const auto message = ReadWktAsLibrary(geo, ansi)) throw Failure(FromLibrary(*message));
  Pro projected;
  const auto refused = ReadWktAsLibrary(projected, ansi);
  PrintEllipsoid(geo);
  if (!refused) {
    PrintProjection(projected);
  } else {
    PrintLine("not a projected system here: " + FromLibrary(*refused));
  }
  PrintWhatConvertSays(wkt);
  return kSuccess;
}

}  // namespace qn::geo
