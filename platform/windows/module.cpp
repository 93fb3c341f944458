// SPDX-License-Identifier: MIT
#include "platform/windows/module.h"

#include "platform/module.h"
#include "platform/windows/platform.h"
#include "platform/windows/thread_data.h"

namespace {

HINSTANCE g_module = nullptr;
bool g_unloading = false;
bool g_process_ends = false;

}  // namespace

void* quarnfc::platform::ModuleHandle() { return g_module; }

bool quarnfc::platform::ModuleIsUnloading() { return g_unloading; }

bool quarnfc::platform::ProcessIsEnding() { return g_process_ends; }

// The entry routine is told what ends.
void quarnfc::platform::NoteOtherThread() noexcept {}

// The module's entry routine. When the module goes it runs before the destructors of static
// objects; reserved is null unless the whole process ends.
extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID reserved) {
  if (reason == DLL_PROCESS_ATTACH) g_module = module;
  if (reason == DLL_THREAD_DETACH) quarnfc::platform::EndThreadData();
  if (reason == DLL_PROCESS_DETACH) {
    g_unloading = reserved == nullptr;
    g_process_ends = reserved != nullptr;
  }
  return TRUE;
}
