#include "platform/diagnostics.h"
#include "platform/platform.h"

namespace quarnfc {

void WriteEventLogEntry(const char* source, unsigned short type, const char* text) {
  const HANDLE log = RegisterEventSourceA(nullptr, source);
  if (log == nullptr) return;
  ReportEventA(log, type, 0, 0, nullptr, 1, 0, &text, nullptr);
  DeregisterEventSource(log);
}

}  // namespace quarnfc
