#include "platform/windows/module.h"

#include "platform/windows/platform.h"

namespace {

HINSTANCE g_module = nullptr;

}  // namespace

void* quarnfc::platform::ModuleHandle() { return g_module; }

// The module's entry routine.
extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) g_module = module;
  return TRUE;
}
