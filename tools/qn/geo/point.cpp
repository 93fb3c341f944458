// SPDX-License-Identifier: MIT
#include "qn/geo/point.h"

#include <quarnfc/ext/sexagesimal.h>

#include <charconv>
#include <cmath>
#include <utility>

#include "qn/errors.h"

namespace qn {
namespace {

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::string Fixed(double value, int decimals) {
  char digits[400];
  const auto result =
      std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, decimals);
  return {digits, result.ptr};
}

}  // namespace

AxisOrder AxisOrderFrom(const std::string& name) {
  if (name == "en") return AxisOrder::kEastNorth;
  if (name == "ne") return AxisOrder::kNorthEast;
  throw UsageError("--order is en (east first) or ne (north first)");
}

bool ReadNumber(std::string_view text, double& number) {
  text = Trim(text);
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  return result.ec == std::errc() && result.ptr == text.data() + text.size() &&
         std::isfinite(number);
}

bool ReadCoordinate(std::string_view text, bool degrees, double& number) {
  return ReadNumber(text, number) || (degrees && quarnfc::ext::ReadAngle(text, number));
}

std::string FormatPoint(const Point& point, int decimals, AxisOrder order, char separator) {
  std::string text;
  const bool east_first = order == AxisOrder::kEastNorth;
  for (const double value : {east_first ? point.x : point.y, east_first ? point.y : point.x}) {
    if (!text.empty()) text += separator;
    text += Fixed(value, decimals);
  }
  return text;
}

std::string PointMembers(const Point& point, int decimals, bool degrees) {
  return (degrees ? "\"longitude\":" : "\"easting\":") + Fixed(point.x, decimals) +
         (degrees ? ",\"latitude\":" : ",\"northing\":") + Fixed(point.y, decimals);
}

}  // namespace qn
