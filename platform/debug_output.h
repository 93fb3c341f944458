// SPDX-License-Identifier: MIT
// Text for a debugger that watches this process.
#ifndef QUARNFC_PLATFORM_DEBUG_OUTPUT_H_
#define QUARNFC_PLATFORM_DEBUG_OUTPUT_H_

namespace quarnfc::platform {

// Shows the text in the debugger; without one, and for null, nothing happens. Off Windows the text
// goes as it is to the standard error stream, and errno stays as it was. Never throws; may be
// called by several threads at once.
void WriteDebugOutput(const char* text);

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_DEBUG_OUTPUT_H_
