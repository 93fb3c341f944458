// SPDX-License-Identifier: MIT
#include "geo/wkt_number.h"

#include <charconv>
#include <limits>
#include <system_error>

namespace quarnfc::geo {

namespace {

// A number that no double holds is infinite when it has a digit above 0 in front of the point,
// otherwise it vanishes. Either way it keeps its sign.
double OutOfRange(std::string_view text) {
  const bool is_large = text.find_first_of("123456789") < text.find('.');
  const double magnitude = is_large ? std::numeric_limits<double>::infinity() : 0.0;
  return text.front() == '-' ? -magnitude : magnitude;
}

}  // namespace

bool IsWktNumber(std::string_view text) {
  return text.find_first_not_of("0123456789.+-") == std::string_view::npos;
}

double ReadWktNumber(std::string_view text) {
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  double value = 0.0;
  const auto result =
      std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
  return result.ec == std::errc::result_out_of_range ? OutOfRange(text) : value;
}

}  // namespace quarnfc::geo
