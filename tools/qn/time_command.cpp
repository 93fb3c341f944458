// SPDX-License-Identifier: MIT
// qn time: the current time, and times as text and back.
#include <quarnfc/time_utils.h>

#include <cstdio>
#include <cstdlib>
#include <optional>

#include "qn/command.h"
#include "qn/console.h"
#include "qn/errors.h"
#include "qn/exit_code.h"
#include "qn/options.h"
#include "qn/os.h"

namespace qn {
namespace {

constexpr unsigned int kNotATime = 0xFFFFFFFF;

std::string Format(unsigned int time) {
  return static_cast<const char*>(QNTimeUtils::FormatTime(time));
}

int RunNow(std::span<const std::string> arguments) {
  const Options options(arguments, {{"seconds", 's'}});
  options.ExpectPositional(0, 0);
  const unsigned int now = QNTimeUtils::GetCurTime();
  PrintLine(options.Has("seconds") ? std::to_string(now) : Format(now));
  return kSuccess;
}

// The end of the year 3000, UTC, less a day for every time zone: as far as every platform goes.
constexpr long long kMostSeconds = 32535129599;

long long ReadSeconds(const std::string& text) {
  const bool digits = !text.empty() && text.size() <= 11 &&
                      text.find_first_not_of("0123456789") == std::string::npos;
  const long long seconds = digits ? std::stoll(text) : kMostSeconds + 1;
  if (seconds > kMostSeconds) {
    throw UsageError("'" + DisplayText(text) + "' is no number from 0 to " +
                     std::to_string(kMostSeconds));
  }
  return seconds;
}

// The library's functions end in the year 2106.
std::string FormatLater(long long seconds) {
  std::tm time;
  if (!os::LocalTime(seconds, time)) throw Failure("there is no such local time");
  char text[64];
  std::snprintf(text, sizeof(text), "%d-%02d-%02d %02d:%02d:%02d", time.tm_year + 1900,
                time.tm_mon + 1, time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec);
  return text;
}

int RunFormat(std::span<const std::string> arguments) {
  const Options options(arguments, {});
  options.ExpectPositional(1, 1);
  const long long seconds = ReadSeconds(options.Positional()[0]);
  PrintLine(seconds < kNotATime ? Format(static_cast<unsigned int>(seconds))
                                : FormatLater(seconds));
  return kSuccess;
}

// A time that the library has no number for; nothing when the text is none.
std::optional<long long> ParseLater(const std::string& text) {
  std::tm time = {};
  int end = 0;
  const int count =
      std::sscanf(text.c_str(), "%4d-%2d-%2d%n %2d:%2d:%2d%n", &time.tm_year, &time.tm_mon,
                  &time.tm_mday, &end, &time.tm_hour, &time.tm_min, &time.tm_sec, &end);
  if ((count != 3 && count != 6) || static_cast<std::size_t>(end) != text.size()) {
    return std::nullopt;
  }
  if (time.tm_year < 2106 || time.tm_year > 3000) return std::nullopt;
  time.tm_year -= 1900;
  time.tm_mon -= 1;
  time.tm_isdst = -1;
  const long long seconds = os::SecondsOf(time);
  std::tm back = {};
  const bool same = os::LocalTime(seconds, back) && back.tm_year == time.tm_year &&
                    back.tm_mon == time.tm_mon && back.tm_mday == time.tm_mday &&
                    back.tm_hour == time.tm_hour && back.tm_min == time.tm_min &&
                    back.tm_sec == time.tm_sec;
  return same && seconds <= kMostSeconds ? std::optional(seconds) : std::nullopt;
}

// The library's number of a time. It counts in 32 bits and begins anew behind the year 2106.
std::optional<long long> ParseAsLibrary(const std::string& text) {
  const unsigned int time = QNTimeUtils::GetTimeFromStr(LibraryText(text).c_str());
  return time == kNotATime ? std::nullopt : std::optional<long long>(time);
}

int RunParse(std::span<const std::string> arguments) {
  const Options options(arguments, {});
  options.ExpectPositional(1, 1);
  const std::string& text = options.Positional()[0];
  const bool later = std::strtol(text.c_str(), nullptr, 10) >= 2106;
  const std::optional<long long> seconds = later ? ParseLater(text) : ParseAsLibrary(text);
  if (!seconds) throw Failure("'" + DisplayText(text) + "' is no date-time text");
  PrintLine(std::to_string(*seconds));
  return kSuccess;
}

constexpr Command kTimeCommands[] = {
    {"now", "The current time",
     "usage: qn time now [--seconds]\n"
     "\n"
     "Prints the current local time.\n"
     "\n"
     "  -s, --seconds   print seconds since 1970-01-01 00:00:00 UTC\n",
     RunNow},
    {"format", "Seconds to local date-time text",
     "usage: qn time format SECONDS\n"
     "\n"
     "Prints SECONDS since 1970-01-01 00:00:00 UTC, 0 to 32535129599 (the year 3000), as local "
     "time.\n",
     RunFormat},
    {"parse", "Local date-time text to seconds",
     "usage: qn time parse TEXT\n"
     "\n"
     "Prints the seconds since 1970-01-01 00:00:00 UTC of a local time such as\n"
     "\"2024-01-05 08:30:00\" or \"2024-1-5\".\n"
     "\n"
     "Exit code 1: the text is not accepted.\n",
     RunParse}};

}  // namespace

extern const Command kTimeCommand;
const Command kTimeCommand = {"time", "The current time, and times as text",
                              "usage: qn time now|format|parse [ARGUMENT...]\n", nullptr,
                              kTimeCommands};

}  // namespace qn
