#include "platform/module.h"

#include "platform/platform.h"

namespace {

HINSTANCE g_module = nullptr;

}  // namespace

void* quarnfc::ModuleHandle() { return g_module; }

// The module's entry routine.
extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) g_module = module;
  return TRUE;
}
