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

struct FreeSystemString {
  void operator()(BSTR text) const noexcept { SysFreeString(text); }
};

// Moves and does not copy; null is no string.
using SystemString = std::unique_ptr<wchar_t, FreeSystemString>;

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_SYSTEM_STRING_H_
