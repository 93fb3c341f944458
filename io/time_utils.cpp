// SPDX-License-Identifier: MIT
// Date-time text:
//
//   text   = number "-" number "-" number [ " " time ]
//   time   = number ":" number ":" number  |  anything with fewer than two colons, ignored
//   number = white space [ "-" ] digits white space
//
// where no white space may stand between the second dash and the day, since a blank there ends the
// date. Local time is the C run-time library's, its normalisation of days beyond the month and its
// rule for daylight saving included; results are cut to 32 bits. All this is deliberate.
#include <quarnfc/time_utils.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>

#include "platform/clock.h"

namespace quarnfc::io {
namespace {

constexpr unsigned int kNotATime = 0xFFFFFFFF;

bool IsDigit(char ch) { return ch >= '0' && ch <= '9'; }

// A decimal number, one "-" in front allowed and white space around it, within [minimum, maximum].
bool ReadNumberWithin(CQNString field, int minimum, int maximum, int& value) {
  field.Trim();
  const char* const text = field;
  const char* const digits = *text == '-' ? text + 1 : text;
  if (*digits == '\0' || !std::all_of(digits, text + field.GetLength(), IsDigit)) return false;
  const long long number = std::strtoll(text, nullptr, 10);  // far beyond any range when too long
  if (number < minimum || number > maximum) return false;
  value = static_cast<int>(number);
  return true;
}

// Reads the numbers of a date; day_end is where the day ends.
bool ReadDate(const CQNString& text, int first_dash, int second_dash, int day_end, std::tm& time) {
  if (!ReadNumberWithin(text.Left(first_dash), 1990, 2500, time.tm_year) ||
      !ReadNumberWithin(text.Mid(first_dash + 1, second_dash - first_dash - 1), 1, 12,
                        time.tm_mon) ||
      !ReadNumberWithin(text.Mid(second_dash + 1, day_end - second_dash - 1), 1, 31,
                        time.tm_mday)) {
    return false;
  }
  time.tm_year -= 1900;
  time.tm_mon -= 1;
  return true;
}

// Reads the numbers of a time of day behind the blank at start. With fewer than two colons there
// is no time of day and the numbers stay 0.
bool ReadTimeOfDay(const CQNString& text, int start, std::tm& time) {
  const int first_colon = text.Find(':', start + 1);
  if (first_colon < 0) return true;
  const int second_colon = text.Find(':', first_colon + 1);
  if (second_colon < 0) return true;
  return ReadNumberWithin(text.Mid(start + 1, first_colon - start - 1), 0, 23, time.tm_hour) &&
         ReadNumberWithin(text.Mid(first_colon + 1, second_colon - first_colon - 1), 0, 59,
                          time.tm_min) &&
         ReadNumberWithin(text.Mid(second_colon + 1), 0, 59, time.tm_sec);
}

// Reads date-time text into a local broken-down time.
bool ReadLocalTime(const CQNString& text, std::tm& time) {
  const int first_dash = text.Find('-');
  if (first_dash < 0) return false;
  const int second_dash = text.Find('-', first_dash + 1);
  if (second_dash < 0) return false;
  const int blank = text.Find(' ', second_dash + 1);
  const int day_end = blank < 0 ? text.GetLength() : blank;
  return ReadDate(text, first_dash, second_dash, day_end, time) &&
         (blank < 0 || ReadTimeOfDay(text, blank, time));
}

}  // namespace
}  // namespace quarnfc::io

namespace QNTimeUtils {

unsigned int GetCurTime() { return static_cast<unsigned int>(quarnfc::platform::CurrentTime()); }

CQNString FormatTime(unsigned int time) {
  CQNString text;
  std::tm local{};
  if (!quarnfc::platform::ToLocalTime(time, local)) return text;
  text.Format("%d-%02d-%02d %02d:%02d:%02d", local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
              local.tm_hour, local.tm_min, local.tm_sec);
  return text;
}

CQNString GetCurFormatTime() { return FormatTime(GetCurTime()); }

unsigned int GetTimeFromStr(const char* text) {
  std::tm local{};
  local.tm_isdst = -1;  // the platform decides
  if (!quarnfc::io::ReadLocalTime(text, local)) return quarnfc::io::kNotATime;
  return static_cast<unsigned int>(quarnfc::platform::FromLocalTime(local));
}

}  // namespace QNTimeUtils
