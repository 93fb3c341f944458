// SPDX-License-Identifier: MIT
// The owner of a system string (BSTR), as CQNString::AllocSysString returns it: SysFreeString
// releases it.
//
// On Windows include <oleauto.h> before this header, which declares SysFreeString, and link
// oleaut32. Header-only, C++17.
//
// Example:
//   const quarnfc::ext::SystemString text(CQNString("abc").AllocSysString());
//   SysStringLen(text.get());    // == 3u
#ifndef QUARNFC_EXT_SYSTEM_STRING_H_
#define QUARNFC_EXT_SYSTEM_STRING_H_

#include <quarnfc/platform_types.h>

#include <memory>

namespace quarnfc::ext {

// A template, so that the header compiles where nothing has declared SysFreeString and nobody uses
// the owner.
template <class Char>
struct FreeSystemString {
  void operator()(Char* text) const noexcept { SysFreeString(text); }
};

// Moves and does not copy; null is no string.
using SystemString = std::unique_ptr<wchar_t, FreeSystemString<wchar_t>>;

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_SYSTEM_STRING_H_
