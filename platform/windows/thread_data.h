// SPDX-License-Identifier: MIT
#ifndef QUARNFC_PLATFORM_WINDOWS_THREAD_DATA_H_
#define QUARNFC_PLATFORM_WINDOWS_THREAD_DATA_H_

// Most sources see this header, and <windows.h> is longer than all the rest they see.
#if defined(_MSC_VER)
extern "C" unsigned __int64 __readgsqword(unsigned long offset);
#pragma intrinsic(__readgsqword)
#endif

namespace quarnfc::platform {

extern unsigned long g_thread_data_slot;

void* ThreadDataOfLateSlot();

// For the module's entry routine: this thread ends.
void EndThreadData() noexcept;

// A pointer in this thread's environment block, which winternl.h documents.
inline void* ThreadBlockPointer(unsigned long offset) {
#if defined(_MSC_VER)
  return reinterpret_cast<void*>(__readgsqword(offset));
#else
  void* pointer;
  asm volatile("movq %%gs:(%1), %0" : "=r"(pointer) : "r"(static_cast<unsigned long long>(offset)));
  return pointer;
#endif
}

// TlsGetValue is a call and resets the last error. The first slots lie in the block.
inline void* ThreadData() {
  constexpr unsigned long kFirstSlots = 64;
  constexpr unsigned long kOffset = 0x1480;
  if (g_thread_data_slot >= kFirstSlots) return ThreadDataOfLateSlot();
  return ThreadBlockPointer(kOffset + 8 * g_thread_data_slot);
}

// The block's own address, which NtCurrentTeb gives.
inline const void* ThreadMark() {
  constexpr unsigned long kSelf = 0x30;
  return ThreadBlockPointer(kSelf);
}

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_WINDOWS_THREAD_DATA_H_
