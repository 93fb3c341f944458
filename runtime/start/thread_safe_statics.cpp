// SPDX-License-Identifier: MIT
// Statics of functions, initialised once whatever number of threads arrive. The compiler keeps a
// guard per object: 0 before, -1 while a thread initialises it, otherwise the epoch in which it was
// done. A thread whose own epoch is not older than that need not come here at all.
#include <windows.h>

#include <limits.h>

extern "C" {

int _Init_global_epoch = INT_MIN;
__declspec(thread) int _Init_thread_epoch = INT_MIN;

}  // extern "C"

namespace {

constexpr int kUninitialised = 0;
constexpr int kBeingInitialised = -1;

SRWLOCK g_lock = SRWLOCK_INIT;
CONDITION_VARIABLE g_ended = CONDITION_VARIABLE_INIT;

class Locked {
 public:
  Locked() { AcquireSRWLockExclusive(&g_lock); }
  ~Locked() { ReleaseSRWLockExclusive(&g_lock); }
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;

  static void WaitForAnEnd() { SleepConditionVariableSRW(&g_ended, &g_lock, INFINITE, 0); }
};

}  // namespace

// Afterwards the guard is "being initialised" when it is the caller's turn.
extern "C" void __cdecl _Init_thread_header(int* guard) {
  const Locked locked;
  while (*guard == kBeingInitialised) Locked::WaitForAnEnd();
  if (*guard == kUninitialised) {
    *guard = kBeingInitialised;
  } else {
    _Init_thread_epoch = _Init_global_epoch;
  }
}

// The initialiser threw: another thread, or this one, may try again.
extern "C" void __cdecl _Init_thread_abort(int* guard) {
  {
    const Locked locked;
    *guard = kUninitialised;
  }
  WakeAllConditionVariable(&g_ended);
}

extern "C" void __cdecl _Init_thread_footer(int* guard) {
  {
    const Locked locked;
    *guard = ++_Init_global_epoch;
    _Init_thread_epoch = _Init_global_epoch;
  }
  WakeAllConditionVariable(&g_ended);
}
