// SPDX-License-Identifier: MIT
// Angles as degrees, minutes and seconds.
//
// Read are, with blanks where they do not separate digits:
//   114d03'27.5"E   114°3′27.5″   E 114 3 27.5   -114:03:27.5   114d3.5'   114.0576
// in UTF-8 or code page 936. ("m" and "s" are no signs of minutes and seconds: "34 s" would be
// south to some.) A sign or one hemisphere letter (N, E positive; S, W negative), not
// both; minutes and seconds below 60; only the last number may have decimals. A packed form,
// DD.MMSS as surveyors key it in, has functions of its own, since it looks like decimal degrees.
//
// Header-only, C++17, in the namespace quarnfc::ext. Independent of the locale. Any thread may
// call.
//
// Example:
//   double angle = 0;
//   quarnfc::ext::ReadAngle("30 35'34.1\"N", angle);    // == true
//   std::lround(angle * 1e6);                           // == 30592806
//   quarnfc::ext::WriteAngle(angle, 2);                 // == "30d35'34.10\""
#ifndef QUARNFC_EXT_SEXAGESIMAL_H_
#define QUARNFC_EXT_SEXAGESIMAL_H_

#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>

namespace quarnfc::ext {

namespace detail {

// Cuts an angle's text from the left.
class AngleText {
 public:
  explicit AngleText(std::string_view text) : rest_(text) { SkipBlanks(); }

  bool IsAtEnd() const { return rest_.empty(); }

  // Takes one of the spellings in front of the text, and the blanks behind it.
  template <std::size_t kCount>
  bool Take(const std::string_view (&spellings)[kCount]) {
    for (const std::string_view spelling : spellings) {
      if (rest_.substr(0, spelling.size()) != spelling) continue;
      rest_.remove_prefix(spelling.size());
      SkipBlanks();
      return true;
    }
    return false;
  }

  // Takes a number of digits with or without decimals, and the blanks behind it. has_point tells
  // whether it had a point. Digits beyond the eighteenth are read over.
  bool TakeNumber(double& number, bool& has_point) {
    long long digits = 0;
    int decimals = 0;
    std::size_t length = 0;
    has_point = false;
    for (; length < rest_.size(); ++length) {
      const char ch = rest_[length];
      if (ch == '.' && !has_point && length > 0) {
        has_point = true;
      } else if (!IsDigit(ch)) {
        break;
      } else if (digits < kMostDigits) {
        digits = digits * 10 + (ch - '0');
        decimals += has_point ? 1 : 0;
      } else if (!has_point) {
        return false;
      }
    }
    if (length == 0) return false;
    number = static_cast<double>(digits) / std::pow(10.0, decimals);
    rest_.remove_prefix(length);
    SkipBlanks();
    return true;
  }

 private:
  static constexpr long long kMostDigits = 100000000000000000;

  static bool IsDigit(char ch) { return ch >= '0' && ch <= '9'; }
  void SkipBlanks() {
    while (!rest_.empty() && (rest_.front() == ' ' || rest_.front() == '\t'))
      rest_.remove_prefix(1);
  }

  std::string_view rest_;
};

// Signs of degrees, minutes and seconds: ASCII, UTF-8, code page 936.
inline constexpr std::string_view kDegreeSigns[] = {"\xC2\xB0", "\xA1\xE3", "d",
                                                    "D",        ":",        "\xC2\xBA"};
inline constexpr std::string_view kMinuteSigns[] = {"'", "\xE2\x80\xB2", "\xE2\x80\x99", "\xA1\xE4",
                                                    ":"};
inline constexpr std::string_view kSecondSigns[] = {"\"", "''", "\xE2\x80\xB3", "\xE2\x80\x9D",
                                                    "\xA1\xE5"};
inline constexpr std::string_view kPositiveLetters[] = {"N", "E", "n", "e"};
inline constexpr std::string_view kNegativeLetters[] = {"S", "W", "s", "w"};
inline constexpr std::string_view kPlus[] = {"+"};
inline constexpr std::string_view kMinus[] = {"-", "\xE2\x88\x92"};

// Takes a sign or hemisphere letter: 1, -1, or 0 when there is none.
inline int TakeHemisphere(AngleText& text) {
  if (text.Take(kPositiveLetters)) return 1;
  return text.Take(kNegativeLetters) ? -1 : 0;
}

inline int TakeSign(AngleText& text) {
  if (text.Take(kPlus)) return 1;
  return text.Take(kMinus) ? -1 : 0;
}

// Degrees, then minutes and seconds where there are any.
inline bool TakeMagnitude(AngleText& text, double& magnitude) {
  double minutes = 0, seconds = 0;
  bool has_point = false;
  if (!text.TakeNumber(magnitude, has_point)) return false;
  text.Take(kDegreeSigns);
  if (has_point || !text.TakeNumber(minutes, has_point)) return true;
  if (!(minutes < 60)) return false;
  text.Take(kMinuteSigns);
  if (!has_point && text.TakeNumber(seconds, has_point)) {
    if (!(seconds < 60)) return false;
    text.Take(kSecondSigns);
  }
  magnitude += (minutes + seconds / 60.0) / 60.0;
  return true;
}

inline int LimitDecimals(int decimals) { return decimals < 0 ? 0 : decimals > 9 ? 9 : decimals; }

inline long long PowerOfTen(int exponent) {
  long long power = 1;
  while (exponent-- > 0) power *= 10;
  return power;
}

// Whole degrees, whole minutes and seconds in units of 10^-decimals, rounded as one number so that
// there are never 60.
struct SplitAngle {
  bool negative = false;
  long long degrees = 0;
  long long minutes = 0;
  long long second_units = 0;
};

inline SplitAngle Split(double angle, int decimals) {
  const long long minute = 60 * PowerOfTen(decimals);
  const long long units = std::llround(std::fabs(angle) * 60.0 * static_cast<double>(minute));
  return {std::signbit(angle) && units > 0, units / (60 * minute), units / minute % 60,
          units % minute};
}

// The digits of a number, zeros in front up to the width.
inline std::string Padded(long long number, int width) {
  const std::string digits = std::to_string(number);
  const auto columns = static_cast<std::size_t>(width);
  return digits.size() < columns ? std::string(columns - digits.size(), '0') + digits : digits;
}

// The largest angle that is split: beyond it the digits of the seconds are noise.
inline constexpr double kLargestAngle = 1e6;

}  // namespace detail

// Reads an angle in degrees. False, with angle unchanged, for anything but one of the forms above.
inline bool ReadAngle(std::string_view text, double& angle) {
  detail::AngleText rest(text);
  int sign = detail::TakeSign(rest);
  int hemisphere = sign == 0 ? detail::TakeHemisphere(rest) : 0;
  double magnitude = 0;
  if (!detail::TakeMagnitude(rest, magnitude)) return false;
  if (sign == 0 && hemisphere == 0) hemisphere = detail::TakeHemisphere(rest);
  if (!rest.IsAtEnd()) return false;
  angle = sign < 0 || hemisphere < 0 ? -magnitude : magnitude;
  return true;
}

// An angle as 114d03'27.50": minutes and seconds with two digits, 0 to 9 decimals of the seconds.
// degree_sign stands behind the degrees ("d", or "\xC2\xB0" for UTF-8). Empty for angles that are
// not finite or beyond a million degrees.
inline std::string WriteAngle(double angle, int decimals, std::string_view degree_sign = "d") {
  if (!(std::fabs(angle) <= detail::kLargestAngle)) return {};
  decimals = detail::LimitDecimals(decimals);
  const detail::SplitAngle split = detail::Split(angle, decimals);
  const long long unit = detail::PowerOfTen(decimals);
  std::string text(split.negative ? "-" : "");
  text.append(std::to_string(split.degrees)).append(degree_sign);
  text.append(detail::Padded(split.minutes, 2)).append("'");
  text.append(detail::Padded(split.second_units / unit, 2));
  if (decimals > 0) text.append(".").append(detail::Padded(split.second_units % unit, decimals));
  return text.append("\"");
}

// The packed form DDD.MMSSsss as a number: 114.0327500 for 114d03'27.5". Reading gives false, with
// angle unchanged, when the minutes or seconds in it are 60 or more or it is not finite. Digits are
// taken to a billionth of the packed number (0.01 milliseconds of arc), since a packed number is
// decimal and a double is not.
inline bool FromPackedAngle(double packed, double& angle) {
  if (!(std::fabs(packed) <= detail::kLargestAngle)) return false;
  const auto digits = static_cast<long long>(std::llround(std::fabs(packed) * 1e9));
  const long long whole_degrees = digits / 1000000000;
  const long long whole_minutes = digits / 10000000 % 100;
  const auto degrees = static_cast<double>(whole_degrees);
  const auto minutes = static_cast<double>(whole_minutes);
  const double seconds = static_cast<double>(digits % 10000000) / 1e5;
  if (!(minutes < 60 && seconds < 60)) return false;
  const double magnitude = degrees + minutes / 60.0 + seconds / 3600.0;
  angle = packed < 0 ? -magnitude : magnitude;
  return true;
}

// The packed form of an angle in degrees, seconds rounded to 5 decimals; not-a-number for angles
// that are not finite or beyond a million degrees.
inline double ToPackedAngle(double angle) {
  if (!(std::fabs(angle) <= detail::kLargestAngle)) return std::nan("");
  const detail::SplitAngle split = detail::Split(angle, 5);
  const long long digits =
      split.degrees * 1000000000 + split.minutes * 10000000 + split.second_units;
  const double magnitude = static_cast<double>(digits) / 1e9;
  return split.negative ? -magnitude : magnitude;
}

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_SEXAGESIMAL_H_
