// SPDX-License-Identifier: MIT
// The entry routine of a console program.
#include <windows.h>

#include <stdlib.h>

#include "start.h"

extern "C" {

int main(int argc, char** argv, char** environment);

// Functions of the Universal C Run-time for start-up code.
enum ApplicationKind { kConsoleApplication = 1 };
enum ArgumentMode { kArgumentsAsTheyAre = 1 };
__declspec(dllimport) void __cdecl _set_app_type(ApplicationKind kind);
__declspec(dllimport) int __cdecl _configure_narrow_argv(ArgumentMode mode);
__declspec(dllimport) int __cdecl _initialize_narrow_environment();
__declspec(dllimport) char** __cdecl _get_initial_narrow_environment();
__declspec(dllimport) int __cdecl _seh_filter_exe(unsigned long code, EXCEPTION_POINTERS* info);

}  // extern "C"

namespace {

using quarnfc::runtime::DestroyThreadLocals;
using quarnfc::runtime::InitialiseSecurityCookie;
using quarnfc::runtime::InitialiseThreadLocals;
using quarnfc::runtime::RunInitialisers;

constexpr int kStartFailed = 255;

int Run() {
  _set_app_type(kConsoleApplication);
  if (_configure_narrow_argv(kArgumentsAsTheyAre) != 0) return kStartFailed;
  if (_initialize_narrow_environment() != 0 || !RunInitialisers()) return kStartFailed;
  InitialiseThreadLocals();
  return main(*__p___argc(), *__p___argv(), _get_initial_narrow_environment());
}

}  // namespace

extern "C" __attribute__((no_stack_protector)) int mainCRTStartup() {
  InitialiseSecurityCookie();
  __try {
    const int result = Run();
    DestroyThreadLocals();
    exit(result);
  } __except (_seh_filter_exe(GetExceptionCode(), GetExceptionInformation())) {
    _exit(static_cast<int>(GetExceptionCode()));
  }
}
