// SPDX-License-Identifier: MIT
#include "platform/module.h"

#include <cstdlib>

namespace quarnfc::platform {
namespace {

bool g_unloading = false;
bool g_process_ends = false;

// A termination function runs before the destructors of static objects when the module is unloaded.
// At the end of the process that depends on who loaded it. exit() calls what was registered last
// first, and the loader's own function, which runs this one, is registered before main() starts: in
// a module that the program loads the destructors have run by then, in one that it is linked with
// they have not.
[[gnu::destructor]] void NoteUnloading() { g_unloading = !g_process_ends; }

// Runs when the module is unloaded, too, after the function above.
void NoteProcessEnd() { g_process_ends = !g_unloading; }

}  // namespace

bool ModuleIsUnloading() { return g_unloading; }

bool ProcessIsEnding() { return g_process_ends; }

// Other threads come after main() has started, so this is registered behind the loader's function
// and called in front of it.
void NoteOtherThread() noexcept {
  [[maybe_unused]] static const int registered = std::atexit(NoteProcessEnd);
}

}  // namespace quarnfc::platform
