// SPDX-License-Identifier: MIT
// The end of the library's own module.
#ifndef QUARNFC_PLATFORM_MODULE_H_
#define QUARNFC_PLATFORM_MODULE_H_

namespace quarnfc::platform {

// For the destructors of static objects: whether the module is being unloaded. At the end of the
// process it is not: other threads may go on using what the module owns, so nothing is freed.
bool ModuleIsUnloading();

// Whether the process ends while other threads may go on. Not known before its static objects are
// destroyed.
bool ProcessIsEnding();

// Called on a thread that uses the module, other than the one that loaded it: it may go on when the
// process ends.
void NoteOtherThread() noexcept;

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_MODULE_H_
