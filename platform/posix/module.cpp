// SPDX-License-Identifier: MIT
#include "platform/module.h"

namespace quarnfc::platform {
namespace {

bool g_unloading = false;

// A termination function runs before the destructors of static objects when the module is unloaded,
// and after them at the end of the process, where exit() has called them already.
[[gnu::destructor]] void NoteUnloading() { g_unloading = true; }

}  // namespace

bool ModuleIsUnloading() { return g_unloading; }

}  // namespace quarnfc::platform
