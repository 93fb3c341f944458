// SPDX-License-Identifier: MIT
// The DllMain of a DLL that has none.
#include <windows.h>

extern "C" BOOL WINAPI DllMain(HINSTANCE /*module*/, DWORD /*reason*/, void* /*reserved*/) {
  return TRUE;
}
