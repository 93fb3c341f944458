// SPDX-License-Identifier: MIT
// System strings: UTF-16 text behind its byte count, as the platform's automation functions and
// hosts exchange it. SysStringLen and SysFreeString, which hosts call as well, are declared in
// <quarnfc/platform_types.h> or, on Windows, by the platform.
#ifndef QUARNFC_PLATFORM_SYSTEM_STRING_H_
#define QUARNFC_PLATFORM_SYSTEM_STRING_H_

#include <quarnfc/platform_types.h>

namespace quarnfc::platform {

// A new string of length units and a terminator, copied from source or, when that is null,
// uninitialised. Null when memory is exhausted or the length is beyond what the count holds.
BSTR AllocSystemString(const wchar_t* source, unsigned int length);

// Replaces string, which may be null, by a string of length units copied from source; a null source
// keeps the old text as far as it fits. The source may be part of the old string. False, with the
// old string kept, under the conditions above.
bool ReallocSystemString(BSTR& string, const wchar_t* source, unsigned int length);

// Releases a string; null is ignored.
void FreeSystemString(BSTR string) noexcept;

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_SYSTEM_STRING_H_
