// SPDX-License-Identifier: MIT
#include "platform/system_string.h"

#include "platform/windows/platform.h"

#include <oleauto.h>

namespace quarnfc::platform {

BSTR AllocSystemString(const wchar_t* source, unsigned int length) {
  return SysAllocStringLen(source, length);
}

bool ReallocSystemString(BSTR& string, const wchar_t* source, unsigned int length) {
  return SysReAllocStringLen(&string, source, length) != 0;
}

void FreeSystemString(BSTR string) noexcept { SysFreeString(string); }

}  // namespace quarnfc::platform
