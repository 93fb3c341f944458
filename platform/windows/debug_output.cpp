// SPDX-License-Identifier: MIT
#include "platform/debug_output.h"

#include "platform/windows/platform.h"

void quarnfc::platform::WriteDebugOutput(const char* text) {
  if (text != nullptr) OutputDebugStringA(text);
}
