// SPDX-License-Identifier: MIT
#include "platform/code_page.h"
#include "platform/diagnostics.h"
#include "platform/windows/platform.h"

namespace quarnfc::platform {

namespace {

// The longest insertion string of the event log in UTF-16 units. It refuses longer ones; Wine
// releases memory it never had when it is given one, so they do not get there.
constexpr int kLongestText = 31839;

bool IsTooLong(const char* text) {
  return ToUtf16(Encoding::kAnsi, text, kTerminated, nullptr, 0) - 1 > kLongestText;
}

}  // namespace

void WriteEventLogEntry(const char* source, unsigned short type, const char* text) {
  if (IsTooLong(text)) return;
  const HANDLE log = RegisterEventSourceA(nullptr, source);
  if (log == nullptr) return;
  ReportEventA(log, type, 0, 0, nullptr, 1, 0, &text, nullptr);
  DeregisterEventSource(log);
}

}  // namespace quarnfc::platform
