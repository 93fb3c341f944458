#include "geo/wkt_number.h"

#include <charconv>
#include <limits>
#include <system_error>

namespace quarnfc {

namespace {

char* StripTrailing(char* begin, char* end, char ch) {
  while (end != begin && end[-1] == ch) --end;
  return end;
}

// A number that no double holds is infinite when it has a digit above 0 in front of the point,
// otherwise it vanishes.
double OutOfRange(std::string_view text) {
  if (text.find_first_of("123456789") >= text.find('.')) return 0.0;
  const double infinity = std::numeric_limits<double>::infinity();
  return text.front() == '-' ? -infinity : infinity;
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

WktNumber::WktNumber(double value, int decimals) {
  char* const last = text_ + sizeof text_ - 1;
  char* end = std::to_chars(text_, last, value, std::chars_format::fixed, decimals).ptr;
  end = StripTrailing(text_, end, '0');
  end = StripTrailing(text_, end, '.');
  *end = '\0';
}

}  // namespace quarnfc
