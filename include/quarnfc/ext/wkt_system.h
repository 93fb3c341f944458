// SPDX-License-Identifier: MIT
// Coordinate systems from Well-Known Text as other software writes it: WKT 1 as GDAL and Esri have
// it (projection "Gauss_Kruger" included), WKT 2 (ISO 19162, 2015 and 2019) as PROJ has it.
//
// It stands beside CQNGeoCoordinateSystem::SetFromWKTA and CQNProCoordinateSystem::SetFromWKTA,
// which read the library's own texts and pass over units, prime meridians and the latitude of
// origin. Here whatever would move coordinates is honoured or refused, and the rest that is not
// honoured is said:
//
//   honoured   ellipsoid; transverse Mercator (Gauss-Krueger) with central meridian, latitude of
//              origin, scale factor, false easting and northing in any unit of length; Web
//              Mercator; the unit of length of the coordinates; the order of the axes
//   refused    other projections; prime meridians but Greenwich; angles but degrees; axes that do
//              not point east and north; derived systems
//   passed over, and said: shifts to WGS 84 (TOWGS84, BOUNDCRS), heights of compound systems and
//              third axes, epochs, EXTENSION, keywords that are not known
//
// Names, identifiers, usage and remarks are taken for what they are: remarks. Header-only, C++17.
// Errors are values; std::bad_alloc comes when memory is exhausted. Any thread may call.
//
// Example:
//   quarnfc::ext::WktReport report;
//   const auto system = quarnfc::ext::ReadWktSystem(
//       "PROJCS[\"zone\",GEOGCS[\"CGCS2000\",DATUM[\"D\",SPHEROID[\"S\",6378137,298.257222101]],"
//       "PRIMEM[\"Greenwich\",0],UNIT[\"degree\",0.0174532925199433]],"
//       "PROJECTION[\"Transverse_Mercator\"],PARAMETER[\"latitude_of_origin\",0],"
//       "PARAMETER[\"central_meridian\",114],PARAMETER[\"scale_factor\",1],"
//       "PARAMETER[\"false_easting\",500000],PARAMETER[\"false_northing\",0],"
//       "UNIT[\"metre\",1]]", &report);
//   report.error;                                                          // == ""
//   std::lround(system->Projection().Forward({114.3055, 30.5928}).east);   // == 529300
#ifndef QUARNFC_EXT_WKT_SYSTEM_H_
#define QUARNFC_EXT_WKT_SYSTEM_H_

#include <quarnfc/ext/coordinates.h>
#include <quarnfc/ext/official_systems.h>
#include <quarnfc/ext/transverse_mercator.h>
#include <quarnfc/ext/wkt_text.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quarnfc::ext {

// What a text says.
struct WktSystem {
  SystemKind kind = SystemKind::kGeographic;
  std::string name;
  std::string datum;  // "CGCS2000", "WGS 84", "Xian 1980", "Beijing 1954", or what the text says
  Ellipsoid ellipsoid;
  TransverseMercatorParameters parameters;  // of kTransverseMercator, in degrees and metres
  double unit = 1;           // metres in a unit of the coordinates of a projected system
  bool north_first = false;  // the text has the north axis before the east one

  // The projection of a kTransverseMercator system. Its plane coordinates are metres and east
  // first, whatever the text says.
  TransverseMercator Projection() const { return TransverseMercator(ellipsoid, parameters); }
};

// How the reading went.
struct WktReport {
  std::string error;                      // why the text was refused, in English
  std::vector<std::string> not_honoured;  // what was passed over, in English
};

namespace detail {

class WktSystemReader {
 public:
  explicit WktSystemReader(WktReport& report) : report_(report) {}

  bool Read(const WktNode& root) {
    if (root.Is({"boundcrs"})) return ReadBound(root);
    if (root.Is({"compdcs", "compoundcrs"})) return ReadCompound(root);
    system_.name = root.TextAt(0);
    if (IsGeographic(root)) return ReadGeographic(root) && ReadAxes(root, kDegree, true);
    if (root.Is({"projcs", "projcrs", "projectedcrs"})) return ReadProjected(root);
    return Fail("the WKT is a " + root.keyword + ", which is not read here");
  }

  const WktSystem& System() const { return system_; }

 private:
  using Keywords = std::initializer_list<std::string_view>;

  static constexpr double kDegree = 0.017453292519943295;

  static bool IsGeographic(const WktNode& node) {
    return node.Is({"geogcs", "geogcrs", "geographiccrs", "geodcrs", "geodeticcrs"});
  }

  static const WktNode* FindUnit(const WktNode& node) {
    return node.Find({"unit", "lengthunit", "angleunit", "scaleunit"});
  }

  static bool IsRemark(const WktNode& node) {
    return node.Is({"authority", "id", "usage", "scope", "area", "bbox", "remark", "citation"});
  }

  // --- the outcome

  bool Fail(std::string why) {
    report_.error = std::move(why);
    return false;
  }
  bool Refuse(const std::string& what) {
    return Fail("the WKT has " + what + ", which is not honoured here");
  }
  void PassOver(const std::string& what) { report_.not_honoured.push_back(what); }

  // What a node holds beside the keywords that are read and those that say nothing.
  void PassOverOthers(const WktNode& node, Keywords read) {
    for (const WktNode& value : node.values) {
      if (value.keyword.empty() || value.Is(read) || IsRemark(value)) continue;
      PassOver(value.keyword + " in " + node.keyword);
    }
  }

  bool Number(const WktNode& node, std::size_t index, double& number) {
    const std::optional<double> found = node.NumberAt(index);
    if (!found || !std::isfinite(*found)) {
      return Fail("the WKT has no number where " + node.keyword + " needs one");
    }
    number = *found;
    return true;
  }

  const WktNode* Needed(const WktNode& parent, Keywords keywords, const char* name) {
    const WktNode* const node = parent.Find(keywords);
    if (node == nullptr) Fail(std::string("the WKT has no ") + name + " in its " + parent.keyword);
    return node;
  }

  // --- systems around a system

  bool ReadBound(const WktNode& root) {
    const WktNode* const source = Needed(root, {"sourcecrs"}, "sourcecrs");
    if (source == nullptr) return false;
    PassOver("the transformation of BOUNDCRS");
    return source->values.empty() ? Fail("the WKT has an empty SOURCECRS")
                                  : Read(source->values.front());
  }

  bool ReadCompound(const WktNode& root) {
    const auto node = std::find_if(root.values.begin(), root.values.end(),
                                   [](const WktNode& each) { return !each.keyword.empty(); });
    if (node == root.values.end()) return Fail("the WKT has an empty " + root.keyword);
    PassOver("the vertical part of " + root.keyword);
    return Read(*node);
  }

  // --- geographic systems

  bool ReadGeographic(const WktNode& node) {
    PassOverOthers(node, {"datum", "geodeticdatum", "trf", "ensemble", "primem", "primemeridian",
                          "unit", "angleunit", "cs", "axis"});
    const WktNode* const datum =
        Needed(node, {"datum", "geodeticdatum", "trf", "ensemble"}, "datum");
    return datum != nullptr && ReadDatum(*datum) && ReadPrimeMeridian(node) && ReadAngle(node);
  }

  bool ReadDatum(const WktNode& datum) {
    PassOverOthers(datum, {"spheroid", "ellipsoid", "member", "ensembleaccuracy", "anchor"});
    system_.datum = DatumName(datum.TextAt(0));
    const WktNode* const node = Needed(datum, {"spheroid", "ellipsoid"}, "spheroid");
    Ellipsoid& ellipsoid = system_.ellipsoid;
    if (node == nullptr || !Number(*node, 1, ellipsoid.semi_major_axis) ||
        !Number(*node, 2, ellipsoid.inverse_flattening)) {
      return false;
    }
    double unit = 1;
    if (const WktNode* const length = FindUnit(*node); length && !Number(*length, 1, unit)) {
      return false;
    }
    ellipsoid.semi_major_axis *= unit;
    return (ellipsoid.semi_major_axis > 0 && std::isfinite(ellipsoid.semi_major_axis) &&
            ellipsoid.inverse_flattening > 1) ||
           Refuse("a spheroid that is no flattened ellipsoid");
  }

  // Datums go by several names.
  static std::string DatumName(const std::string& name) {
    constexpr std::pair<std::string_view, const char*> kKnown[] = {
        {"beijing1954", "Beijing 1954"},
        {"xian1980", "Xian 1980"},
        {"china2000", "CGCS2000"},
        {"cgcs2000", "CGCS2000"},
        {"wgs1984", "WGS 84"},
        {"wgs84", "WGS 84"},
        {"worldgeodeticsystem1984", "WGS 84"}};
    const std::string folded = FoldWktName(name);
    for (const auto& [part, datum] : kKnown) {
      if (folded.find(part) != std::string::npos) return datum;
    }
    return name;
  }

  bool ReadPrimeMeridian(const WktNode& node) {
    const WktNode* const meridian = node.Find({"primem", "primemeridian"});
    double longitude = 0;
    if (meridian != nullptr && !Number(*meridian, 1, longitude)) return false;
    return longitude == 0 || Refuse("the prime meridian " + meridian->TextAt(0));
  }

  // The unit that longitudes and the numbers of a projection are in.
  bool ReadAngle(const WktNode& node) {
    const WktNode* const unit = node.Find({"unit", "angleunit"});
    return unit == nullptr || IsDegree(*unit);
  }

  bool IsDegree(const WktNode& unit) {
    double factor = 0;
    if (!Number(unit, 1, factor)) return false;
    return std::abs(factor - kDegree) <= 1e-9 || Refuse("angles in " + unit.TextAt(0));
  }

  // --- axes

  // Two axes, east and north in either order, all in one unit. unit is what the text says for the
  // whole; a geographic system has degrees.
  bool ReadAxes(const WktNode& node, double unit, bool geographic) {
    std::string order;
    for (const WktNode& axis : node.values) {
      if (!axis.Is({"axis"})) continue;
      const std::string direction = FoldWktName(axis.TextAt(1));
      if (direction == "up") {
        PassOver("the height axis " + axis.TextAt(0));
        continue;
      }
      if (direction != "east" && direction != "north") {
        return Refuse("an axis to the " + axis.TextAt(1));
      }
      order += direction[0];
      if (!ReadAxisUnit(axis, unit, geographic)) return false;
    }
    if (!order.empty() && order != "en" && order != "ne") return Refuse("axes that are no pair");
    system_.north_first = order == "ne";
    return true;
  }

  bool ReadAxisUnit(const WktNode& axis, double unit, bool geographic) {
    const WktNode* const node = FindUnit(axis);
    if (node == nullptr) return true;
    if (geographic) return IsDegree(*node);
    double factor = 0;
    return Number(*node, 1, factor) &&
           (factor == unit || Refuse("axes of different units of length"));
  }

  // --- projected systems

  bool ReadProjected(const WktNode& node) {
    PassOverOthers(node, {"geogcs", "basegeogcrs", "basegeodcrs", "projection", "conversion",
                          "parameter", "unit", "lengthunit", "cs", "axis", "extension"});
    const WktNode* const base = Needed(node, {"geogcs", "basegeogcrs", "basegeodcrs"}, "geogcs");
    if (base == nullptr || !ReadGeographic(*base) || !ReadLengthUnit(node)) return false;
    const WktNode* const conversion = node.Find({"conversion"});
    const WktNode* const method = conversion != nullptr
                                      ? Needed(*conversion, {"method", "projection"}, "method")
                                      : Needed(node, {"projection"}, "projection");
    return method != nullptr && ReadMethod(node, method->TextAt(0)) &&
           ReadParameters(conversion != nullptr ? *conversion : node) &&
           ReadAxes(node, system_.unit, false);
  }

  // The unit of the coordinates: of the whole, or of the first axis.
  bool ReadLengthUnit(const WktNode& node) {
    const WktNode* unit = node.Find({"unit", "lengthunit"});
    const WktNode* const axis = node.Find({"axis"});
    if (unit == nullptr && axis != nullptr) unit = axis->Find({"unit", "lengthunit"});
    if (unit == nullptr) return Fail("the WKT has no unit in its " + node.keyword);
    if (!Number(*unit, 1, system_.unit)) return false;
    return system_.unit > 0 || Refuse("a unit of length that is none");
  }

  bool ReadMethod(const WktNode& node, const std::string& name) {
    const std::string folded = FoldWktName(name);
    const WktNode* const extension = node.Find({"extension"});
    if (folded == "transversemercator" || folded == "gausskruger") {
      if (extension != nullptr) PassOver("EXTENSION in " + node.keyword);
      system_.kind = SystemKind::kTransverseMercator;
      return true;
    }
    // The writers' names of the one projection that takes the ellipsoid for a sphere. In WKT 1 the
    // extension alone tells it from the Mercator projection.
    const bool sphere = folded == "popularvisualisationpseudomercator" ||
                        folded == "mercatorauxiliarysphere" ||
                        (folded == "mercator1sp" && extension != nullptr &&
                         extension->TextAt(1).find("+a=6378137 +b=6378137") != std::string::npos);
    if (!sphere) return Refuse("the projection " + name);
    system_.kind = SystemKind::kWebMercator;
    return system_.unit == 1 || Refuse("Web Mercator in a unit other than the metre");
  }

  bool ReadParameters(const WktNode& node) {
    const bool web = system_.kind == SystemKind::kWebMercator;
    bool meridian = false;
    for (const WktNode& value : node.values) {
      if (!value.Is({"parameter"})) continue;
      if (web ? !ReadWebParameter(value) : !ReadParameter(value)) return false;
      const std::string name = FoldWktName(value.TextAt(0));
      meridian = meridian || name == "centralmeridian" || name == "longitudeofnaturalorigin";
    }
    return meridian || Fail("the WKT has no central meridian");
  }

  bool ReadParameter(const WktNode& node) {
    TransverseMercatorParameters& to = system_.parameters;
    const std::string name = FoldWktName(node.TextAt(0));
    if (name == "centralmeridian" || name == "longitudeofnaturalorigin") {
      return ReadDegrees(node, to.central_meridian);
    }
    if (name == "latitudeoforigin" || name == "latitudeofnaturalorigin") {
      return ReadDegrees(node, to.latitude_of_origin);
    }
    if (name == "scalefactor" || name == "scalefactoratnaturalorigin") {
      return ReadScaled(node, 1, to.scale_factor);
    }
    if (name == "falseeasting") return ReadScaled(node, system_.unit, to.false_easting);
    if (name == "falsenorthing") return ReadScaled(node, system_.unit, to.false_northing);
    return Refuse("the parameter " + node.TextAt(0));
  }

  bool ReadDegrees(const WktNode& node, double& degrees) {
    const WktNode* const unit = FindUnit(node);
    return (unit == nullptr || IsDegree(*unit)) && Number(node, 1, degrees);
  }

  // In the parameter's own unit, where it has one.
  bool ReadScaled(const WktNode& node, double unit, double& number) {
    const WktNode* const own = FindUnit(node);
    if (own != nullptr && !Number(*own, 1, unit)) return false;
    if (!Number(node, 1, number)) return false;
    number *= unit;
    return std::isfinite(number) || Fail("the WKT has a number in " + node.keyword + " too large");
  }

  // Web Mercator has one form only.
  bool ReadWebParameter(const WktNode& node) {
    const std::string name = FoldWktName(node.TextAt(0));
    const double expected = name.find("scalefactor") == 0 ? 1 : 0;
    double number = 0;
    if (!Number(node, 1, number)) return false;
    return number == expected || Refuse("a Web Mercator with another " + node.TextAt(0));
  }

  WktReport& report_;
  WktSystem system_;
};

}  // namespace detail

// Reads a coordinate system. Nothing when the text is broken or says what cannot be honoured;
// report, when it is not null, tells why, and what was passed over otherwise.
inline std::optional<WktSystem> ReadWktSystem(std::string_view text, WktReport* report = nullptr) {
  WktReport ignored;
  WktReport& told = report != nullptr ? *report : ignored;
  told = {};
  WktNode root;
  if (!ParseWkt(text, root, told.error)) {
    told.error = "the WKT cannot be read: " + told.error;
    return std::nullopt;
  }
  detail::WktSystemReader reader(told);
  if (!reader.Read(root)) return std::nullopt;
  return reader.System();
}

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_WKT_SYSTEM_H_
