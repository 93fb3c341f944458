// SPDX-License-Identifier: MIT
#include "core/text/format_number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <new>
#include <optional>
#include <string_view>

namespace quarnfc {
namespace {

// A number in the pieces between which padding goes.
struct NumberPieces {
  std::string_view prefix;  // sign, "0x"
  std::size_t zeros = 0;    // between the prefix and the digits, asked for by a precision
  std::string_view digits;
  std::size_t more_zeros = 0;  // behind the digits
  std::string_view tail;       // an exponent

  std::size_t Size() const {
    return prefix.size() + zeros + digits.size() + more_zeros + tail.size();
  }
};

void AppendPieces(FormattedText& text, const FormatSpec& spec, NumberPieces pieces, bool may_fill) {
  std::size_t padding = std::max(spec.Columns(), pieces.Size()) - pieces.Size();
  if (spec.zero && may_fill && !spec.left) {
    pieces.zeros += padding;
    padding = 0;
  }
  char* place = text.Extend(padding + pieces.Size());
  if (!spec.left) place = std::fill_n(place, padding, ' ');
  place = FormattedText::Copy(pieces.prefix, place);
  place = std::fill_n(place, pieces.zeros, '0');
  place = FormattedText::Copy(pieces.digits, place);
  place = std::fill_n(place, pieces.more_zeros, '0');
  place = FormattedText::Copy(pieces.tail, place);
  if (spec.left) std::fill_n(place, padding, ' ');
}

std::string_view SignOf(const FormatSpec& spec, bool negative) {
  if (negative) return "-";
  if (spec.plus) return "+";
  return spec.blank ? " " : "";
}

// --- integers -----------------------------------------------------------------------------------

int RadixOf(char conversion) {
  switch (conversion) {
    case 'o':
      return 8;
    case 'x':
    case 'X':
      return 16;
    default:
      return 10;
  }
}

std::string_view AlternatePrefix(const FormatSpec& spec, unsigned long long value) {
  if (spec.alternates == 0 || value == 0) return "";
  if (spec.conversion == 'x') return "0x";
  return spec.conversion == 'X' ? "0X" : "";
}

// The least digits: a precision of 0 leaves none of the number 0.
void AppendInteger(FormattedText& text, const FormatSpec& spec, std::string_view prefix,
                   unsigned long long value) {
  constexpr std::size_t kDigits = 22;  // 2^64 - 1 in octal
  char digits[kDigits];
  char* end = digits;
  if (value != 0 || spec.precision != 0) {
    end = std::to_chars(digits, digits + kDigits, value, RadixOf(spec.conversion)).ptr;
  }
  if (spec.conversion == 'X') {
    std::transform(digits, end, digits,
                   [](char ch) { return ch >= 'a' ? static_cast<char>(ch - 'a' + 'A') : ch; });
  }

  NumberPieces pieces;
  pieces.prefix = prefix;
  pieces.digits = {digits, static_cast<std::size_t>(end - digits)};
  const auto precision = static_cast<std::size_t>(std::max(spec.precision, 0));
  pieces.zeros = std::max(precision, pieces.digits.size()) - pieces.digits.size();
  const bool wants_octal_zero = spec.conversion == 'o' && spec.alternates > 0;
  if (wants_octal_zero && pieces.zeros == 0 && !pieces.digits.starts_with('0')) pieces.zeros = 1;
  AppendPieces(text, spec, pieces, spec.precision < 0);
}

// --- floating point -----------------------------------------------------------------------------

// No double has more digits behind the point than this, in either form: what a larger precision
// asks for are zeros.
constexpr int kMostDecimals = 1074;

// Room for 309 digits, the point, the decimals and a sign or exponent.
constexpr std::size_t kDigitsRoom = 309 + kMostDecimals + 16;

void AppendNotFinite(FormattedText& text, const FormatSpec& spec, double value) {
  const bool is_upper = spec.conversion < 'a';
  NumberPieces pieces;
  pieces.prefix = SignOf(spec, std::signbit(value));
  pieces.digits = is_upper ? "INF" : "inf";
  if (std::isnan(value)) {
    pieces.digits = is_upper ? "NAN" : "nan";
    // The value that invalid operations give.
    if (std::signbit(value)) pieces.tail = is_upper ? "(IND)" : "(ind)";
  }
  AppendPieces(text, spec, pieces, false);
}

// The conversion as std::to_chars knows it, if it does.
std::optional<std::chars_format> StandardFormat(const FormatSpec& spec) {
  if (spec.alternates > 0) return std::nullopt;
  switch (spec.conversion) {
    case 'e':
      return std::chars_format::scientific;
    case 'f':
      return std::chars_format::fixed;
    case 'g':
      return std::chars_format::general;
    default:
      return std::nullopt;
  }
}

// Adds one to the last digit of a printed number; returns its end.
char* Increment(char* text, char* end) {
  for (char* place = end; place-- > text;) {
    if (*place == '.') continue;
    if (*place != '9') {
      ++*place;
      return end;
    }
    *place = '0';
  }
  std::copy_backward(text, end, end + 1);
  *text = '1';
  return end + 1;
}

// Prints a number of moderate size with any number of decimals that fits, exactly rounded, half to
// even; null when it is none: the part behind the point must be a multiple of 2^-59. The decimals
// come out of it one by one, where ten times the rest passes 2^59.
char* PrintShortly(char (&text)[kDigitsRoom], double magnitude, int decimals) {
  constexpr std::int64_t kOne = std::int64_t{1} << 59;
  if (magnitude >= 1e18) return nullptr;
  const auto whole = static_cast<std::int64_t>(magnitude);
  const double fraction = (magnitude - static_cast<double>(whole)) * static_cast<double>(kOne);
  auto rest = static_cast<std::int64_t>(fraction);
  if (static_cast<double>(rest) != fraction) return nullptr;

  char* end = std::to_chars(text, text + kDigitsRoom, whole).ptr;
  if (decimals > 0) *end++ = '.';
  for (; decimals > 0; --decimals) {
    rest *= 10;
    *end++ = static_cast<char>('0' + rest / kOne);
    rest %= kOne;
  }
  const bool is_odd = (end[-1] & 1) != 0;
  return rest > kOne / 2 || (rest == kOne / 2 && is_odd) ? Increment(text, end) : end;
}

// Prints the magnitude without width and with no more decimals than it has. What std::to_chars does
// not print the C library does, which is slower.
std::string_view PrintMagnitude(char (&room)[kDigitsRoom], const FormatSpec& spec, double value) {
  constexpr int kDefaultPrecision = 6;
  if (const auto standard = StandardFormat(spec)) {
    const int decimals = spec.precision < 0 ? kDefaultPrecision : spec.precision;
    const int printed_decimals = std::min(decimals, kMostDecimals);
    if (*standard == std::chars_format::fixed) {
      const char* const end = PrintShortly(room, std::fabs(value), printed_decimals);
      if (end != nullptr) return {room, static_cast<std::size_t>(end - room)};
    }
    const auto printed =
        std::to_chars(room, room + kDigitsRoom, std::fabs(value), *standard, printed_decimals);
    return {room, static_cast<std::size_t>(printed.ptr - room)};
  }
  const char format[] = {'%', '#', '.', '*', spec.conversion, '\0'};
  const char plain_format[] = {'%', '.', '*', spec.conversion, '\0'};
  const int precision = std::min(spec.precision, kMostDecimals);
  const int length = std::snprintf(room, kDigitsRoom, spec.alternates > 0 ? format : plain_format,
                                   precision, std::fabs(value));
  if (length < 0) throw std::bad_alloc();
  return {room, static_cast<std::size_t>(length)};
}

// Whether the zeros that a precision asks for are written: g drops them unless "#" keeps them.
bool KeepsZeros(const FormatSpec& spec) {
  return (spec.conversion != 'g' && spec.conversion != 'G') || spec.alternates > 0;
}

}  // namespace

void AppendSigned(FormattedText& text, const FormatSpec& spec, long long value) {
  const auto bits = static_cast<unsigned long long>(value);
  AppendInteger(text, spec, SignOf(spec, value < 0), value < 0 ? 0 - bits : bits);
}

void AppendUnsigned(FormattedText& text, const FormatSpec& spec, unsigned long long value) {
  AppendInteger(text, spec, AlternatePrefix(spec, value), value);
}

void AppendFloat(FormattedText& text, const FormatSpec& spec, double value) {
  if (!std::isfinite(value)) {
    AppendNotFinite(text, spec, value);
    return;
  }
  char room[kDigitsRoom];
  const std::string_view printed = PrintMagnitude(room, spec, value);
  const std::size_t exponent = spec.conversion == 'f'
                                   ? printed.size()
                                   : std::min(printed.find_first_of("eE"), printed.size());
  NumberPieces pieces;
  pieces.prefix = SignOf(spec, std::signbit(value));
  pieces.digits = printed.substr(0, exponent);
  pieces.tail = printed.substr(exponent);
  if (spec.precision > kMostDecimals && KeepsZeros(spec)) {
    pieces.more_zeros = static_cast<std::size_t>(spec.precision - kMostDecimals);
  }
  AppendPieces(text, spec, pieces, true);
}

}  // namespace quarnfc
