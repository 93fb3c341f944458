// SPDX-License-Identifier: MIT
// The stack cookie: functions with buffers put it behind them and look whether it is still there.
#include <windows.h>

#include "start.h"

extern "C" {

// The value that the loader knows as "not yet filled" (it may fill it first).
constexpr UINT_PTR kDefaultCookie = 0x00002B992DDFA232;
UINT_PTR __security_cookie = kDefaultCookie;

void __security_check_cookie(UINT_PTR cookie);

}  // extern "C"

namespace {

constexpr unsigned int kStackCookieFailure = 2;           // FAST_FAIL_STACK_COOKIE_CHECK_FAILURE
constexpr UINT_PTR kWithoutHighest = 0x0000FFFFFFFFFFFF;  // so that no text can spell it

[[noreturn]] __attribute__((no_stack_protector)) void FastFail(unsigned int code) {
  __asm__ volatile("int $0x29" : : "c"(code));
  __builtin_unreachable();
}

}  // namespace

__attribute__((no_stack_protector)) void quarnfc::runtime::InitialiseSecurityCookie() {
  if (__security_cookie != kDefaultCookie) return;
  FILETIME time;
  GetSystemTimeAsFileTime(&time);
  LARGE_INTEGER counter;
  QueryPerformanceCounter(&counter);
  UINT_PTR cookie = reinterpret_cast<UINT_PTR>(&cookie);
  cookie ^= (static_cast<UINT_PTR>(time.dwHighDateTime) << 32) ^ time.dwLowDateTime;
  cookie ^= static_cast<UINT_PTR>(counter.QuadPart) << 16;
  cookie ^= GetCurrentThreadId() ^ (static_cast<UINT_PTR>(GetCurrentProcessId()) << 24);
  cookie &= kWithoutHighest;
  __security_cookie = cookie == kDefaultCookie ? cookie + 1 : cookie;
}

// Ends the process at once; nothing of it can be trusted any more.
extern "C" __attribute__((no_stack_protector)) void __security_check_cookie(UINT_PTR cookie) {
  if (cookie != __security_cookie) FastFail(kStackCookieFailure);
}
