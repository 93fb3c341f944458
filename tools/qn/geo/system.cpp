// SPDX-License-Identifier: MIT
#include "qn/geo/system.h"

#include <quarnfc/ext/official_systems.h>
#include <quarnfc/ext/zones.h>
#include <quarnfc/web_mercator.h>

#include <charconv>
#include <cmath>
#include <string_view>

#include "qn/console.h"
#include "qn/errors.h"
#include "qn/geo/wkt_system.h"
#include "qn/input_file.h"
#include "qn/text/encoding.h"

namespace qn {
namespace {

namespace ext = quarnfc::ext;

struct NamedDatum {
  std::string_view name;
  int code;  // of its longitude and latitude
};

constexpr NamedDatum kDatums[] = {
    {"beijing54", 4214}, {"xian80", 4610}, {"cgcs2000", 4490}, {"wgs84", 4326}};

std::string Lower(std::string text) {
  for (char& ch : text) ch = ch >= 'A' && ch <= 'Z' ? static_cast<char>(ch - 'A' + 'a') : ch;
  return text;
}

std::optional<int> ReadInt(std::string_view text) {
  int value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || result.ec != std::errc() || result.ptr != text.data() + text.size()) {
    return std::nullopt;
  }
  return value;
}

// "utm50" and "utm50n" are northern, "utm50s" is southern; nothing when it is no UTM zone.
std::optional<int> ReadUtmZone(std::string_view text) {
  if (!text.starts_with("utm") || text.size() < 4) return std::nullopt;
  text.remove_prefix(3);
  const bool south = text.back() == 's';
  if (south || text.back() == 'n') text.remove_suffix(1);
  const std::optional<int> zone = ReadInt(text);
  if (!zone) return std::nullopt;
  if (*zone < 1 || *zone > 60) throw UsageError("there is no UTM zone " + std::to_string(*zone));
  return south ? -*zone : *zone;
}

std::optional<int> ReadEpsgCode(std::string_view text) {
  if (text.starts_with("epsg:")) text.remove_prefix(5);
  return ReadInt(text);
}

std::string WktIn(const std::string& path) {
  return DecodeDocument(ReadInput(path), DisplayText(path)).text;
}

ext::OfficialSystem DatumSystem(const std::string& name) {
  for (const NamedDatum& datum : kDatums) {
    if (datum.name == name) return *ext::FindOfficialSystem(datum.code);
  }
  throw UsageError("--ellipsoid is beijing54, xian80, cgcs2000 or wgs84");
}

// The codes whose zones are 6 degrees wide.
bool HasWideZones(int code) {
  constexpr int kRanges[][2] = {{2327, 2348}, {4491, 4512}, {21413, 21463}};
  for (const auto& range : kRanges) {
    if (code >= range[0] && code <= range[1]) return true;
  }
  return false;
}

}  // namespace

GeoSystem::GeoSystem(const std::string& description, const GeoSystemOptions& options)
    : as_library_(options.as_library) {
  const std::string name = Lower(description);
  if (TakeName(name, options)) return;
  if (const std::optional<int> zone = ReadUtmZone(name)) {
    TakeUtm(*zone);
  } else if (const std::optional<int> code = ReadEpsgCode(name)) {
    as_library_ ? TakeLibraryCode(*code) : TakeCode(*code);
  } else {
    TakeWkt(description);
  }
}

bool GeoSystem::TakeName(const std::string& name, const GeoSystemOptions& options) {
  if (name == "lonlat") {
    kind_ = Kind::kLonLat;
    return true;
  }
  if (name == "mercator") {
    TakeCode(3857);
    return true;
  }
  if (name == "tm") {
    TakeCustom(options);
    return true;
  }
  for (const NamedDatum& datum : kDatums) {
    if (name != datum.name) continue;
    TakeCode(datum.code);
    return true;
  }
  return false;
}

void GeoSystem::TakeCode(int code) {
  const auto system = ext::FindOfficialSystem(code);
  if (!system) {
    throw UsageError("EPSG code " + std::to_string(code) + " is not known" +
                     (as_library_ ? "" : "; --as-library has codes of its own"));
  }
  datum_ = system->datum;
  ellipsoid_ = system->ellipsoid;
  parameters_ = system->parameters;
  if (system->kind == ext::SystemKind::kGeographic) kind_ = Kind::kLonLat;
  if (system->kind == ext::SystemKind::kWebMercator) kind_ = Kind::kWebMercator;
  if (kind_ != Kind::kProjected) return;
  Project();
  FindZone(HasWideZones(code) ? 6 : 3);
}

void GeoSystem::TakeLibraryCode(int code) {
  CQNProCoordinateSystem system;
  CQNProCoordinateSystem::EPCSType type;
  if (code == 4326 || code == 4490 || code == 4214 || code == 4610 || code == 3857) {
    TakeCode(code);
    return;
  }
  if (!system.setByEPSGCode(code, type)) {
    throw UsageError("EPSG code " + std::to_string(code) + " is not known to the library");
  }
  TakeLibrary(system);
  FindZone(HasWideZones(code) ? 6 : 3);
}

void GeoSystem::TakeUtm(int zone) {
  if (!as_library_) {
    TakeCode(zone > 0 ? 32600 + zone : 32700 - zone);
    return;
  }
  CQNProCoordinateSystem system;
  system.setByUTMCode(zone);
  TakeLibrary(system);
}

void GeoSystem::TakeWkt(const std::string& path) {
  const std::string wkt = WktIn(path);
  if (as_library_) {
    CQNProCoordinateSystem system;
    if (const auto message = ReadWktAsLibrary(system, LibraryText(wkt))) {
      throw Failure(DisplayText(path) + ": " + FromLibrary(*message));
    }
    TakeLibrary(system);
    return;
  }
  try {
    const WktSystem system = ReadWktSystem(wkt);
    datum_ = system.datum;
    ellipsoid_ = system.ellipsoid;
    parameters_ = system.parameters;
    unit_ = system.unit;
    if (system.kind == ext::SystemKind::kGeographic) kind_ = Kind::kLonLat;
    if (system.kind == ext::SystemKind::kWebMercator) kind_ = Kind::kWebMercator;
  } catch (const Failure& failure) {
    throw Failure(DisplayText(path) + ": " + failure.what());
  }
  if (kind_ != Kind::kProjected) return;
  Project();
  FindZone(3);
}

void GeoSystem::TakeCustom(const GeoSystemOptions& options) {
  if (!options.central_meridian) throw UsageError("the system tm needs --cm, its meridian");
  const ext::OfficialSystem datum = DatumSystem(Lower(options.ellipsoid));
  datum_ = datum.datum;
  ellipsoid_ = datum.ellipsoid;
  parameters_ = {*options.central_meridian, 0, options.false_easting, options.false_northing,
                 options.scale_factor};
  Project();
  FindZone(3);
}

void GeoSystem::TakeLibrary(const CQNProCoordinateSystem& system) {
  library_ = system;
  const CQNGeoCoordinateSystem& geo = system.GetGeoSystem();
  ellipsoid_ = {geo.GetSemiMajorAxis(), geo.GetInverseFlattening()};
  parameters_ = {system.GetCentralMeridian(), 0, system.GetFalseEasting(),
                 system.GetFalseNorthing(), system.GetScaleFactor()};
  // No constants: on Windows their addresses come from the import table.
  const struct {
    const CQNGeoCoordinateSystem* system;
    const char* datum;
  } kNamed[] = {{&CQNGeoCoordinateSystem::Beijing54, "Beijing 1954"},
                {&CQNGeoCoordinateSystem::XiAn80, "Xian 1980"},
                {&CQNGeoCoordinateSystem::CGCS2000, "CGCS2000"},
                {&CQNGeoCoordinateSystem::WGS84, "WGS 84"}};
  for (const auto& named : kNamed) {
    if (*named.system == geo) datum_ = named.datum;
  }
}

// By the exact series. The library's object stands by for what else it can do.
void GeoSystem::Project() {
  projection_.emplace(ellipsoid_, parameters_);
  library_ = CQNProCoordinateSystem(
      CQNGeoCoordinateSystem(ellipsoid_.semi_major_axis, ellipsoid_.inverse_flattening),
      parameters_.central_meridian, parameters_.false_easting, parameters_.false_northing,
      parameters_.scale_factor);
}

// Only systems of scale 1 whose meridian is that of a zone have zone numbers.
void GeoSystem::FindZone(int width) {
  const double meridian = parameters_.central_meridian;
  const double number = width == 6 ? (meridian + 3) / 6 : meridian / 3;
  if (parameters_.scale_factor == 1 && number == std::floor(number) && number > 0) {
    zone_ = static_cast<int>(number);
  }
}

Point GeoSystem::ToLonLat(const Point& point) const {
  Point degrees = point;
  if (kind_ == Kind::kWebMercator) {
    QNWebMercator::WebMercator2LonLat(point.x, point.y, degrees.x, degrees.y);
  } else if (projection_) {
    const ext::LonLat at = projection_->Inverse({point.x * unit_, point.y * unit_});
    degrees = {at.lon, at.lat};
  } else if (kind_ == Kind::kProjected) {
    CQNProCoordinateSystem::GaussToGeo(point.x, point.y, degrees.x, degrees.y, library_);
  }
  return degrees;
}

Point GeoSystem::FromLonLat(const Point& point) const {
  Point plane = point;
  if (kind_ == Kind::kWebMercator) {
    QNWebMercator::LonLat2WebMercator(point.x, point.y, plane.x, plane.y);
  } else if (projection_) {
    const ext::EastNorth at = projection_->Forward({point.x, point.y});
    plane = {at.east / unit_, at.north / unit_};
  } else if (kind_ == Kind::kProjected) {
    CQNProCoordinateSystem::GeoToGauss(point.x, point.y, plane.x, plane.y, library_);
  }
  return plane;
}

std::vector<int> FindEpsgCodes(const CQNProCoordinateSystem& system) {
  std::vector<int> codes;
  for (int code = 2327; code <= 32660; ++code) {
    CQNProCoordinateSystem known;
    CQNProCoordinateSystem::EPCSType type;
    // Comparison does not tell the scale factors 0.9996 and 1 apart; here they matter.
    if (known.setByEPSGCode(code, type) && known == system && known.IsUTM() == system.IsUTM()) {
      codes.push_back(code);
    }
  }
  return codes;
}

}  // namespace qn
