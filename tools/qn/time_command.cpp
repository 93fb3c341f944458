// qn time: the current time, and times as text and back.
#include <quarnfc/time_utils.h>

#include "command.h"
#include "console.h"
#include "errors.h"
#include "exit_code.h"
#include "options.h"

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

unsigned int ReadSeconds(const std::string& text) {
  constexpr unsigned long long kMost = 0xFFFFFFFF;
  const bool digits = !text.empty() && text.size() <= 10 &&
                      text.find_first_not_of("0123456789") == std::string::npos;
  const unsigned long long seconds = digits ? std::stoull(text) : kMost + 1;
  if (seconds > kMost) {
    throw UsageError("'" + DisplayText(text) + "' is no number from 0 to 4294967295");
  }
  return static_cast<unsigned int>(seconds);
}

int RunFormat(std::span<const std::string> arguments) {
  const Options options(arguments, {});
  options.ExpectPositional(1, 1);
  PrintLine(Format(ReadSeconds(options.Positional()[0])));
  return kSuccess;
}

int RunParse(std::span<const std::string> arguments) {
  const Options options(arguments, {});
  options.ExpectPositional(1, 1);
  const std::string text = LibraryText(options.Positional()[0]);
  const unsigned int time = QNTimeUtils::GetTimeFromStr(text.c_str());
  if (time == kNotATime) throw Failure("'" + text + "' is no date-time text");
  PrintLine(std::to_string(time));
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
     "Prints SECONDS since 1970-01-01 00:00:00 UTC, 0 to 4294967295, as local time.\n",
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
