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
#include <cstring>
#include <ctime>
#include <optional>
#include <utility>

#include "core/text/character.h"
#include "core/text/multibyte.h"
#include "platform/clock.h"

namespace quarnfc::io {
namespace {

constexpr unsigned int kNotATime = 0xFFFFFFFF;

bool IsDigit(char ch) { return ch >= '0' && ch <= '9'; }

// A part of the text.
struct Field {
  const char* begin;
  const char* end;

  int Length() const { return static_cast<int>(end - begin); }
};

// A decimal number, one "-" in front allowed and white space around it.
std::optional<long long> ReadAnyNumber(CQNString field) {
  field.Trim();
  const char* const text = field;
  const char* const digits = *text == '-' ? text + 1 : text;
  if (*digits == '\0' || !std::all_of(digits, text + field.GetLength(), IsDigit)) {
    return std::nullopt;
  }
  return std::strtoll(text, nullptr, 10);  // far beyond any range when too long
}

// The same, fast for the digits alone of usual numbers.
std::optional<long long> ReadNumber(Field field) {
  constexpr int kMostDigits = 9;
  const bool is_usual = field.Length() > 0 && field.Length() <= kMostDigits &&
                        std::all_of(field.begin, field.end, IsDigit);
  if (!is_usual) return ReadAnyNumber(CQNString(field.begin, field.Length()));
  long long number = 0;
  for (const char* p = field.begin; p < field.end; ++p) number = number * 10 + (*p - '0');
  return number;
}

bool ReadNumberWithin(Field field, int minimum, int maximum, int& value) {
  const auto number = ReadNumber(field);
  if (!number || *number < minimum || *number > maximum) return false;
  value = static_cast<int>(*number);
  return true;
}

// The place of a character at or behind from, or null.
const char* Find(const char* from, char ch) {
  return reinterpret_cast<const char*>(MbsChr(Bytes(from), static_cast<unsigned char>(ch)));
}

bool ReadDate(Field year, Field month, Field day, std::tm& time) {
  if (!ReadNumberWithin(year, 1990, 2500, time.tm_year) ||
      !ReadNumberWithin(month, 1, 12, time.tm_mon) || !ReadNumberWithin(day, 1, 31, time.tm_mday)) {
    return false;
  }
  time.tm_year -= 1900;
  time.tm_mon -= 1;
  return true;
}

// Reads the numbers of a time of day. With fewer than two colons there is none and the numbers stay
// 0.
bool ReadTimeOfDay(Field text, std::tm& time) {
  const char* const first_colon = Find(text.begin, ':');
  if (first_colon == nullptr) return true;
  const char* const second_colon = Find(first_colon + 1, ':');
  if (second_colon == nullptr) return true;
  return ReadNumberWithin({text.begin, first_colon}, 0, 23, time.tm_hour) &&
         ReadNumberWithin({first_colon + 1, second_colon}, 0, 59, time.tm_min) &&
         ReadNumberWithin({second_colon + 1, text.end}, 0, 59, time.tm_sec);
}

// Reads date-time text into a local broken-down time.
bool ReadLocalTime(const char* text, std::tm& time) {
  const char* const first_dash = Find(text, '-');
  if (first_dash == nullptr) return false;
  const char* const second_dash = Find(first_dash + 1, '-');
  if (second_dash == nullptr) return false;
  const char* const end = second_dash + std::strlen(second_dash);
  const char* const blank = Find(second_dash + 1, ' ');
  const char* const day_end = blank == nullptr ? end : blank;
  return ReadDate({text, first_dash}, {first_dash + 1, second_dash}, {second_dash + 1, day_end},
                  time) &&
         (blank == nullptr || ReadTimeOfDay({blank + 1, end}, time));
}

// --- writing ------------------------------------------------------------------------------------

char* WriteNumber(char* text, int number, int digits) {
  for (int i = digits; i-- > 0; number /= 10) text[i] = static_cast<char>('0' + number % 10);
  return text + digits;
}

// "YYYY-MM-DD hh:mm:ss": the years of 32-bit times have four digits.
CQNString LocalTimeText(const std::tm& time) {
  char text[19];
  char* end = WriteNumber(text, time.tm_year + 1900, 4);
  const std::pair<char, int> numbers[] = {{'-', time.tm_mon + 1},
                                          {'-', time.tm_mday},
                                          {' ', time.tm_hour},
                                          {':', time.tm_min},
                                          {':', time.tm_sec}};
  for (const auto& [separator, number] : numbers) {
    *end++ = separator;
    end = WriteNumber(end, number, 2);
  }
  return CQNString(text, static_cast<int>(end - text));
}

}  // namespace
}  // namespace quarnfc::io

namespace QNTimeUtils {

unsigned int GetCurTime() { return static_cast<unsigned int>(quarnfc::platform::CurrentTime()); }

CQNString FormatTime(unsigned int time) {
  std::tm local{};
  if (!quarnfc::platform::ToLocalTime(time, local)) return CQNString();
  return quarnfc::io::LocalTimeText(local);
}

CQNString GetCurFormatTime() { return FormatTime(GetCurTime()); }

unsigned int GetTimeFromStr(const char* text) {
  std::tm local{};
  local.tm_isdst = -1;  // the platform decides
  if (text == nullptr || !quarnfc::io::ReadLocalTime(text, local)) return quarnfc::io::kNotATime;
  return static_cast<unsigned int>(quarnfc::platform::FromLocalTime(local));
}

}  // namespace QNTimeUtils
