// SPDX-License-Identifier: MIT
#ifndef QUARNFC_PLATFORM_POSIX_THREAD_DATA_H_
#define QUARNFC_PLATFORM_POSIX_THREAD_DATA_H_

namespace quarnfc::platform {

// A fixed distance from the thread's base: one instruction, where the default for shared objects
// is a function call. The loader keeps room for such a pointer in objects loaded at run time.
[[gnu::tls_model("initial-exec")]] extern thread_local constinit void* t_thread_data;

inline void* ThreadData() { return t_thread_data; }

inline const void* ThreadMark() { return &t_thread_data; }

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_POSIX_THREAD_DATA_H_
