// SPDX-License-Identifier: MIT
#include "json/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>
#include <system_error>

#include "json/wide_product.h"

namespace quarnfc::json {
namespace {

bool IsDigit(char ch) { return ch >= '0' && ch <= '9'; }
bool IsSign(char ch) { return ch == '+' || ch == '-'; }

// The value of the exponent in "e12", "E+12" or "e-12"; 0 without one. Very large ones are cut
// down to a size that cannot overflow.
long long ExponentValue(std::string_view exponent) {
  if (exponent.size() < 2) return 0;
  exponent.remove_prefix(exponent[1] == '+' ? 2 : 1);
  long long value = 0;
  const auto result = std::from_chars(exponent.data(), exponent.data() + exponent.size(), value);
  if (result.ec != std::errc::result_out_of_range) return value;
  constexpr long long kHuge = std::numeric_limits<long long>::max() / 2;
  return exponent.front() == '-' ? -kHuge : kHuge;
}

// What a number that no double can hold becomes: infinite when its first digit that is not 0
// stands before the point (once the exponent has moved it), zero otherwise.
double OutOfRange(std::string_view token) {
  const std::size_t mantissa_length = std::min(token.find_first_of("eE"), token.size());
  const std::string_view mantissa = token.substr(0, mantissa_length);
  const auto point = static_cast<long long>(std::min(mantissa.find('.'), mantissa.size()));
  const auto lead = static_cast<long long>(mantissa.find_first_of("123456789"));
  const bool large = point - lead + ExponentValue(token.substr(mantissa_length)) > 0;
  const double magnitude = large ? std::numeric_limits<double>::infinity() : 0.0;
  return token.front() == '-' ? -magnitude : magnitude;
}

// Whether all bits of the number lie within 64 before and 64 behind the point.
bool IsFixedPoint(double magnitude) {
  return magnitude == 0 || (magnitude >= 0x1p-11 && magnitude < 0x1p53);
}

constexpr auto kDigitPairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}();

// Exactly count (even) digits of the number, with leading zeros.
void WriteDigits(std::uint32_t number, char* text, std::size_t count) {
  while (count > 0) {
    count -= 2;
    std::memcpy(text + count, &kDigitPairs[2 * (number % 100)], 2);
    number /= 100;
  }
}

// Cuts off the zeros at the end; another character stands before them.
char* CutZeros(char* end) {
  while (end[-1] == '0') --end;
  return end;
}

// Such a number with at most 15 decimal places, its exact value rounded half to even. (The general
// conversion of the standard library gives the same text and takes several times as long.)
char* FormatFixedPoint(double magnitude, char* text, char* limit) {
  constexpr std::uint64_t kScale = 1000000000000000;
  constexpr std::uint64_t kHalf = std::uint64_t{1} << 63;
  auto whole = static_cast<std::uint64_t>(magnitude);
  const double fraction = magnitude - static_cast<double>(whole);
  auto [decimals, rest] = Multiply(static_cast<std::uint64_t>(fraction * 0x1p64), kScale);
  if (rest > kHalf || (rest == kHalf && decimals % 2 != 0)) ++decimals;
  if (decimals == kScale) {
    ++whole;
    decimals = 0;
  }
  char* point = std::to_chars(text, limit, whole).ptr;
  if (decimals == 0) return point;
  // With one digit more than the 15, so that pairs of digits come out even.
  WriteDigits(static_cast<std::uint32_t>(decimals / 10000000), point + 1, 8);
  WriteDigits(static_cast<std::uint32_t>(decimals % 10000000) * 10, point + 9, 8);
  *point = '.';
  return CutZeros(point + 16);
}

// Up to 15 decimal places, without zeros behind the last one that counts.
char* FormatFinite(double number, char* text, char* limit) {
  const double magnitude = std::fabs(number);
  if (IsFixedPoint(magnitude)) {
    if (std::signbit(number)) *text++ = '-';
    return FormatFixedPoint(magnitude, text, limit);
  }
  char* end = CutZeros(std::to_chars(text, limit, number, std::chars_format::fixed, 15).ptr);
  return end[-1] == '.' ? end - 1 : end;
}

char* CopyName(std::string_view name, char* text) {
  std::memcpy(text, name.data(), name.size());
  return text + name.size();
}

// As Windows spells them, and CQNString::Format on every target.
char* FormatNonFinite(double number, char* text) {
  const bool is_negative = std::signbit(number);
  if (std::isinf(number)) return CopyName(is_negative ? "-inf" : "inf", text);
  return CopyName(is_negative ? "-nan(ind)" : "nan", text);
}

}  // namespace

double ParseNumber(const char* first, const char* last) {
  const char* unsigned_part = first != last && IsSign(*first) ? first + 1 : first;
  // Without this check "inf" and "nan" would be numbers.
  if (unsigned_part == last || !(IsDigit(*unsigned_part) || *unsigned_part == '.')) return 0.0;
  if (*first == '+') ++first;
  double number = 0.0;
  const auto [end, error] = std::from_chars(first, last, number);
  if (error != std::errc::result_out_of_range) return number;
  return OutOfRange(std::string_view(first, static_cast<std::size_t>(end - first)));
}

char* FormatNumber(double number, char* text) {
  if (!std::isfinite(number)) return FormatNonFinite(number, text);
  return FormatFinite(number, text, text + kNumberTextCapacity);
}

}  // namespace quarnfc::json
