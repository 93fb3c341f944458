// SPDX-License-Identifier: MIT
// The library's own module.
#ifndef QUARNFC_PLATFORM_WINDOWS_MODULE_H_
#define QUARNFC_PLATFORM_WINDOWS_MODULE_H_

namespace quarnfc::platform {

// The handle the entry routine was given when the module was loaded.
void* ModuleHandle();

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_WINDOWS_MODULE_H_
