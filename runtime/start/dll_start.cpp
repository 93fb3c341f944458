// SPDX-License-Identifier: MIT
// The entry routine of a DLL.
#include <windows.h>

#include "start.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void* reserved);

namespace {

using quarnfc::runtime::DestroyThreadLocals;
using quarnfc::runtime::InitialiseSecurityCookie;
using quarnfc::runtime::InitialiseThreadLocals;
using quarnfc::runtime::KeepExitFunctionsInModule;
using quarnfc::runtime::ReleaseTypeNames;
using quarnfc::runtime::RunExitFunctions;
using quarnfc::runtime::RunInitialisers;

BOOL Detach(HINSTANCE module, void* reserved) {
  const BOOL result = DllMain(module, DLL_PROCESS_DETACH, reserved);
  DestroyThreadLocals();
  RunExitFunctions();
  ReleaseTypeNames();
  return result;
}

BOOL Attach(HINSTANCE module, void* reserved) {
  InitialiseSecurityCookie();
  if (!KeepExitFunctionsInModule() || !RunInitialisers()) return FALSE;
  InitialiseThreadLocals();
  if (DllMain(module, DLL_PROCESS_ATTACH, reserved)) return TRUE;
  Detach(module, reserved);
  return FALSE;
}

}  // namespace

// Thread-local objects of other threads are the business of the loader's calls (thread_local.cpp).
extern "C" __attribute__((no_stack_protector)) BOOL WINAPI _DllMainCRTStartup(HINSTANCE module,
                                                                              DWORD reason,
                                                                              void* reserved) {
  if (reason == DLL_PROCESS_ATTACH) return Attach(module, reserved);
  if (reason == DLL_PROCESS_DETACH) return Detach(module, reserved);
  return DllMain(module, reason, reserved);
}
