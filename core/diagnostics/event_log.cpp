// SPDX-License-Identifier: MIT
#include <quarnfc/crash_dump.h>

#include "platform/diagnostics.h"

namespace QNErrorUtils {

void WriteWindowsLog(unsigned short type, const char* text) {
  quarnfc::platform::WriteEventLogEntry("Quarn", type, text != nullptr ? text : "");
}

}  // namespace QNErrorUtils
