// SPDX-License-Identifier: MIT
#ifndef QUARNFC_PLATFORM_WINDOWS_THREADS_H_
#define QUARNFC_PLATFORM_WINDOWS_THREADS_H_

namespace quarnfc::platform {

// The system may start threads of its own in any process, and does.
constexpr bool HasOneThread() { return false; }

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_WINDOWS_THREADS_H_
