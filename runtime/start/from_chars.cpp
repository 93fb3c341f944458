// SPDX-License-Identifier: MIT
// std::from_chars for double by way of the C run-time's strtod, which rounds correctly. The text
// that the standard's grammar takes is copied apart first: strtod would take more (blanks, a plus
// sign, hexadecimal digits) and wants a terminator.
#include <locale.h>
#include <stdlib.h>
#include <charconv>
#include <cmath>

#include <cstring>
#include <string>

namespace {

bool IsDigit(char ch) { return ch >= '0' && ch <= '9'; }

const char* SkipDigits(const char* text, const char* last) {
  while (text != last && IsDigit(*text)) ++text;
  return text;
}

// The end of "12", "12.", ".5" or "12.5" at text; text itself when there is none.
const char* SkipMantissa(const char* text, const char* last) {
  const char* whole_end = SkipDigits(text, last);
  if (whole_end == last || *whole_end != '.') return whole_end;
  const char* end = SkipDigits(whole_end + 1, last);
  return end - text > 1 ? end : text;
}

// The end of "e5", "E+5" or "e-5" at text; text itself when there is none.
const char* SkipExponent(const char* text, const char* last) {
  if (text == last || (*text | 0x20) != 'e') return text;
  const char* digits = text + 1;
  if (digits != last && (*digits == '+' || *digits == '-')) ++digits;
  const char* end = SkipDigits(digits, last);
  return end == digits ? text : end;
}

_locale_t PlainLocale() {
  static const _locale_t locale = _create_locale(LC_ALL, "C");
  return locale;
}

// The value of the number at [first, last): most are short and need no memory.
double Value(const char* first, const char* last) {
  constexpr std::size_t kShort = 64;
  const auto length = static_cast<std::size_t>(last - first);
  if (length >= kShort) return _strtod_l(std::string(first, last).c_str(), nullptr, PlainLocale());
  char text[kShort];
  std::memcpy(text, first, length);
  text[length] = '\0';
  return _strtod_l(text, nullptr, PlainLocale());
}

bool HasNonZeroDigit(const char* text, const char* last) {
  for (; text != last && (*text | 0x20) != 'e'; ++text) {
    if (*text >= '1' && *text <= '9') return true;
  }
  return false;
}

}  // namespace

std::from_chars_result std::from_chars(const char* first, const char* last, double& value,
                                       chars_format format) {
  const char* text = first != last && *first == '-' ? first + 1 : first;
  const char* mantissa_end = SkipMantissa(text, last);
  if (mantissa_end == text) return {first, errc::invalid_argument};
  const bool takes_exponent = format != chars_format::fixed;
  const char* end = takes_exponent ? SkipExponent(mantissa_end, last) : mantissa_end;
  const double result = Value(first, end);
  const bool is_lost = result == 0.0 && HasNonZeroDigit(text, end);
  if (std::isinf(result) || is_lost) return {end, errc::result_out_of_range};
  value = result;
  return {end, errc{}};
}
