// SPDX-License-Identifier: MIT
#include "qn/json/short_number.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>
#include <system_error>

namespace qn {
namespace {

// 0.digits times 10 to the power of point; no digits stand for zero. Digits neither begin nor end
// with a zero.
struct Decimal {
  std::string digits;
  long long point = 0;

  long long Count() const { return static_cast<long long>(digits.size()); }
};

// Nothing for an exponent of more than nine digits or so.
std::optional<Decimal> Read(std::string_view number) {
  const std::size_t exponent_at = std::min(number.find_first_of("eE"), number.size());
  int exponent = 0;
  if (exponent_at < number.size()) {
    std::string_view text = number.substr(exponent_at + 1);
    if (text[0] == '+') text.remove_prefix(1);
    const auto result = std::from_chars(text.data(), text.data() + text.size(), exponent);
    if (result.ec != std::errc()) return std::nullopt;
  }
  Decimal decimal;
  decimal.digits = number.substr(0, exponent_at);
  const std::size_t point = std::min(decimal.digits.find('.'), exponent_at);
  if (point < exponent_at) decimal.digits.erase(point, 1);
  const std::size_t leading =
      std::min(decimal.digits.find_first_not_of('0'), decimal.digits.size());
  decimal.digits.erase(0, leading);
  decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
  decimal.point = static_cast<long long>(point) - static_cast<long long>(leading) + exponent;
  return decimal;
}

std::size_t PlainLength(const Decimal& decimal) {
  const long long count = decimal.Count();
  const long long length = decimal.point <= 0       ? 2 - decimal.point + count
                           : decimal.point >= count ? decimal.point
                                                    : count + 1;
  return static_cast<std::size_t>(length);
}

std::string Plain(const Decimal& decimal) {
  const std::string& digits = decimal.digits;
  if (decimal.point <= 0) {
    return "0." + std::string(static_cast<std::size_t>(-decimal.point), '0') + digits;
  }
  const auto point = static_cast<std::size_t>(decimal.point);
  if (point >= digits.size()) return digits + std::string(point - digits.size(), '0');
  return digits.substr(0, point) + "." + digits.substr(point);
}

std::string WithExponent(const Decimal& decimal) {
  std::string text = decimal.digits.substr(0, 1);
  if (decimal.digits.size() > 1) text += "." + decimal.digits.substr(1);
  return text + "e" + std::to_string(decimal.point - 1);
}

// Of a number without sign.
std::string Shortened(std::string_view spelled) {
  const std::optional<Decimal> decimal = Read(spelled);
  if (!decimal) return std::string(spelled);
  if (decimal->digits.empty()) return "0";
  if (PlainLength(*decimal) <= spelled.size()) return Plain(*decimal);
  std::string text = WithExponent(*decimal);
  return text.size() <= spelled.size() ? text : std::string(spelled);
}

}  // namespace

std::string ShortNumber(std::string_view spelled) {
  if (spelled.starts_with('-')) return "-" + Shortened(spelled.substr(1));
  return Shortened(spelled);
}

}  // namespace qn
