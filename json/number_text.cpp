#include "json/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <string_view>
#include <system_error>

namespace quarnfc {
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

char* CopyName(std::string_view name, char* text) {
  std::memcpy(text, name.data(), name.size());
  return text + name.size();
}

// One spelling on every target: run-time libraries differ.
char* FormatNonFinite(double number, char* text) {
  if (std::signbit(number)) *text++ = '-';
  return CopyName(std::isnan(number) ? "nan" : "inf", text);
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

char* FormatNumber(double number, char (&text)[kNumberTextCapacity]) {
  if (!std::isfinite(number)) return FormatNonFinite(number, text);
  char* end =
      std::to_chars(text, text + kNumberTextCapacity, number, std::chars_format::fixed, 15).ptr;
  while (end[-1] == '0') --end;
  while (end[-1] == '.') --end;
  return end;
}

}  // namespace quarnfc
