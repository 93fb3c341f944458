// SPDX-License-Identifier: MIT
// Date-time text: read against its rules, one field after the other; and what is read within 32
// bits is written again as a text that reads as the same. Run it in a time zone without summer
// time: an hour that comes twice does not come back.
#include <quarnfc/time_utils.h>

#include <ctime>
#include <string>

#include "fuzz/input.h"
#include "fuzz/reference.h"

namespace {

constexpr unsigned kNotATime = 0xFFFFFFFF;

// Byte index of a character, from a start that may be npos; npos without.
std::size_t Find(const std::string& text, char ch, std::size_t start) {
  if (start == std::string::npos) return start;
  const int found = fuzz::Find(text, std::string(1, ch), start);
  return found < 0 ? std::string::npos : static_cast<std::size_t>(found);
}

bool ReadField(const std::string& text, int minimum, int maximum, int& value) {
  std::string field = fuzz::TrimRight(fuzz::TrimLeft(text, fuzz::IsBlank), fuzz::IsBlank);
  const bool negative = field.substr(0, 1) == "-";
  if (negative) field.erase(0, 1);
  if (field.empty() || field.find_first_not_of("0123456789") != std::string::npos) return false;
  field.erase(0, std::min(field.find_first_not_of('0'), field.size() - 1));
  if (field.size() > 4) return false;
  value = negative ? -std::stoi(field) : std::stoi(field);
  return value >= minimum && value <= maximum;
}

bool ReadTimeOfDay(const std::string& text, std::size_t blank, std::tm& time) {
  const std::size_t first = Find(text, ':', blank);
  const std::size_t second = first == std::string::npos ? first : Find(text, ':', first + 1);
  if (second == std::string::npos) return true;
  return ReadField(text.substr(blank + 1, first - blank - 1), 0, 23, time.tm_hour) &&
         ReadField(text.substr(first + 1, second - first - 1), 0, 59, time.tm_min) &&
         ReadField(text.substr(second + 1), 0, 59, time.tm_sec);
}

unsigned Read(const std::string& text) {
  const std::size_t first = Find(text, '-', 0);
  const std::size_t second = first == std::string::npos ? first : Find(text, '-', first + 1);
  if (second == std::string::npos) return kNotATime;
  const std::size_t blank = Find(text, ' ', second + 1);
  const std::size_t day_end = std::min(blank, text.size());
  std::tm time{};
  if (!ReadField(text.substr(0, first), 1990, 2500, time.tm_year) ||
      !ReadField(text.substr(first + 1, second - first - 1), 1, 12, time.tm_mon) ||
      !ReadField(text.substr(second + 1, day_end - second - 1), 1, 31, time.tm_mday) ||
      !ReadTimeOfDay(text, blank, time)) {
    return kNotATime;
  }
  time.tm_year -= 1900;
  time.tm_mon -= 1;
  time.tm_isdst = -1;
  return static_cast<unsigned>(std::mktime(&time));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = fuzz::Input(data, size).Text();
  const unsigned time = QNTimeUtils::GetTimeFromStr(text.c_str());
  fuzz::Expect(time == Read(text));
  const CQNString formatted = QNTimeUtils::FormatTime(time);
  fuzz::Expect(formatted.GetLength() == 19);
  constexpr unsigned kYear1991 = 662688000;  // well within the years that are read
  if (time >= kYear1991) fuzz::Expect(QNTimeUtils::GetTimeFromStr(formatted) == time);
  return 0;
}
