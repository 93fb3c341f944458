// SPDX-License-Identifier: MIT
// Cases that state how Windows behaves where Wine is known to behave otherwise. They are checked
// everywhere but under Wine.
#ifndef QUARNFC_TESTS_PLATFORM_WINE_H_
#define QUARNFC_TESTS_PLATFORM_WINE_H_

#if defined(_WIN32)
#include <windows.h>
#endif

namespace quarnfc_test {

inline bool RunsUnderWine() {
#if defined(_WIN32)
  const HMODULE ntdll = GetModuleHandleA("ntdll.dll");
  return ntdll != nullptr && GetProcAddress(ntdll, "wine_get_version") != nullptr;
#else
  return false;
#endif
}

}  // namespace quarnfc_test

#endif  // QUARNFC_TESTS_PLATFORM_WINE_H_
