#include "geo_system.h"

#include <quarnfc/web_mercator.h>

#include <cctype>
#include <charconv>
#include <string_view>

#include "console.h"
#include "errors.h"
#include "input_file.h"

namespace qn {
namespace {

std::string Lower(std::string text) {
  for (char& ch : text) ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
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
  if (!zone || *zone < 1) return std::nullopt;
  return south ? -*zone : *zone;
}

std::optional<int> ReadEpsgCode(std::string_view text) {
  if (text.starts_with("epsg:")) text.remove_prefix(5);
  return ReadInt(text);
}

CQNProCoordinateSystem ReadProjected(const std::string& description) {
  const std::string name = Lower(description);
  CQNProCoordinateSystem system;
  if (const std::optional<int> zone = ReadUtmZone(name)) {
    if (!system.setByUTMCode(*zone)) throw UsageError("there is no UTM zone '" + name + "'");
  } else if (const std::optional<int> code = ReadEpsgCode(name)) {
    CQNProCoordinateSystem::EPCSType type;
    if (!system.setByEPSGCode(*code, type)) {
      throw UsageError("EPSG code " + std::to_string(*code) + " is not known to the library");
    }
  } else if (const auto message = ReadWkt(system, ReadInput(description))) {
    throw Failure(DisplayText(description) + ": " + *message);
  }
  return system;
}

}  // namespace

GeoSystem::GeoSystem(const std::string& description) : kind_(Kind::kProjected) {
  if (description == "lonlat") {
    kind_ = Kind::kLonLat;
  } else if (description == "mercator") {
    kind_ = Kind::kWebMercator;
  } else {
    projected_ = ReadProjected(description);
  }
}

Point GeoSystem::ToLonLat(const Point& point) const {
  Point degrees = point;
  if (kind_ == Kind::kWebMercator) {
    QNWebMercator::WebMercator2LonLat(point.x, point.y, degrees.x, degrees.y);
  } else if (kind_ == Kind::kProjected) {
    CQNProCoordinateSystem::GaussToGeo(point.x, point.y, degrees.x, degrees.y, projected_);
  }
  return degrees;
}

Point GeoSystem::FromLonLat(const Point& point) const {
  Point plane = point;
  if (kind_ == Kind::kWebMercator) {
    QNWebMercator::LonLat2WebMercator(point.x, point.y, plane.x, plane.y);
  } else if (kind_ == Kind::kProjected) {
    CQNProCoordinateSystem::GeoToGauss(point.x, point.y, plane.x, plane.y, projected_);
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
