// SPDX-License-Identifier: MIT
#include "platform/posix/internet/http_date.h"

#include <cstdio>
#include <cstring>
#include <string>

namespace quarnfc::internet {
namespace {

bool IsDelimiter(char ch) { return std::strchr(" \t,;-", ch) != nullptr; }

// What was found so far; -1 is missing.
struct Found {
  int day = -1;
  int month = -1;
  int year = -1;
  int hour = -1;
  int minute = -1;
  int second = -1;
};

int MonthOf(const std::string& token) {
  static const char kMonths[] = "janfebmaraprmayjunjulaugsepoctnovdec";
  if (token.size() < 3) return -1;
  std::string lower = token.substr(0, 3);
  for (char& ch : lower) ch = static_cast<char>(ch | 0x20);
  const char* at = std::strstr(kMonths, lower.c_str());
  return at != nullptr && (at - kMonths) % 3 == 0 ? static_cast<int>(at - kMonths) / 3 : -1;
}

// The number that a token of one to most digits is; -1 when it is none.
int NumberOf(const std::string& token, std::size_t most) {
  if (token.empty() || token.size() > most) return -1;
  int number = 0;
  for (const char ch : token) {
    if (ch < '0' || ch > '9') return -1;
    number = number * 10 + (ch - '0');
  }
  return number;
}

bool TakeTime(const std::string& token, Found& found) {
  int length = 0;
  int hour = 0;
  int minute = 0;
  int second = 0;
  if (std::sscanf(token.c_str(), "%2d:%2d:%2d%n", &hour, &minute, &second, &length) != 3 ||
      static_cast<std::size_t>(length) != token.size()) {
    return false;
  }
  found.hour = hour;
  found.minute = minute;
  found.second = second;
  return true;
}

void TakeToken(const std::string& token, Found& found) {
  if (found.hour < 0 && TakeTime(token, found)) return;
  const int short_number = NumberOf(token, 2);
  if (found.day < 0 && short_number >= 0) {
    found.day = short_number;
  } else if (found.month < 0 && MonthOf(token) >= 0) {
    found.month = MonthOf(token);
  } else if (found.year < 0 && token.size() >= 2 && NumberOf(token, 4) >= 0) {
    found.year = NumberOf(token, 4);
    if (token.size() == 2) found.year += found.year < 70 ? 2000 : 1900;
  }
}

bool IsDate(const Found& found) {
  return found.day >= 1 && found.day <= 31 && found.month >= 0 && found.year >= 1601 &&
         found.hour >= 0 && found.hour <= 23 && found.minute >= 0 && found.minute <= 59 &&
         found.second >= 0 && found.second <= 60;
}

}  // namespace

bool ParseHttpDate(std::string_view text, std::time_t& seconds) {
  Found found;
  std::string token;
  for (const char ch : std::string(text) + ' ') {
    if (!IsDelimiter(ch)) {
      token += ch;
      continue;
    }
    if (!token.empty()) TakeToken(token, found);
    token.clear();
  }
  if (!IsDate(found)) return false;
  std::tm parts = {};
  parts.tm_mday = found.day;
  parts.tm_mon = found.month;
  parts.tm_year = found.year - 1900;
  parts.tm_hour = found.hour;
  parts.tm_min = found.minute;
  parts.tm_sec = found.second;
  seconds = timegm(&parts);
  return true;
}

}  // namespace quarnfc::internet
