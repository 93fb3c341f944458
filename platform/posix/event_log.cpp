#include <syslog.h>

#include "platform/diagnostics.h"
#include "platform/platform.h"

namespace quarnfc {

namespace {

// The longest text, in UTF-16 units, that is converted; longer ones go out as they are.
constexpr int kLongestText = 1024;

// The priority for an event type of Windows.
int ToPriority(unsigned short type) {
  switch (type) {
    case 0x01:  // error
      return LOG_ERR;
    case 0x02:  // warning
    case 0x10:  // audit failure
      return LOG_WARNING;
    case 0x00:  // success
    case 0x04:  // information
      return LOG_INFO;
    default:  // audit success and whatever else a host passes
      return LOG_NOTICE;
  }
}

// The text in UTF-8, which readers of the system log expect; empty when it cannot be converted.
struct Utf8Text {
  explicit Utf8Text(const char* text) {
    wchar_t wide[kLongestText];
    if (MultiByteToWideChar(CP_ACP, 0, text, -1, wide, kLongestText) == 0) return;
    WideCharToMultiByte(CP_UTF8, 0, wide, -1, bytes, sizeof bytes, nullptr, nullptr);
  }
  char bytes[3 * kLongestText] = "";
};

}  // namespace

void WriteEventLogEntry(const char* source, unsigned short type, const char* text) {
  // Without openlog: its settings belong to the host.
  const Utf8Text utf8(text);
  syslog(LOG_USER | ToPriority(type), "%s: %s", source, utf8.bytes[0] != '\0' ? utf8.bytes : text);
}

}  // namespace quarnfc
