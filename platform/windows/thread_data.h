// SPDX-License-Identifier: MIT
#ifndef QUARNFC_PLATFORM_WINDOWS_THREAD_DATA_H_
#define QUARNFC_PLATFORM_WINDOWS_THREAD_DATA_H_

#include <windows.h>

namespace quarnfc::platform {

extern DWORD g_thread_data_slot;

void* ThreadDataOfLateSlot();

// For the module's entry routine: this thread ends.
void EndThreadData() noexcept;

// TlsGetValue is a call and resets the last error. The first slots lie in the thread's environment
// block, where winternl.h documents them.
inline void* ThreadData() {
  constexpr DWORD kFirstSlots = 64;
  constexpr DWORD kOffset = 0x1480;
  if (g_thread_data_slot >= kFirstSlots) return ThreadDataOfLateSlot();
  return reinterpret_cast<void*>(__readgsqword(kOffset + 8 * g_thread_data_slot));
}

inline const void* ThreadMark() { return NtCurrentTeb(); }

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_WINDOWS_THREAD_DATA_H_
