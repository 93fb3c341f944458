// SPDX-License-Identifier: MIT
// One pointer of the library for each thread. Reading it is as fast as the platform allows and
// leaves the last error alone.
#ifndef QUARNFC_PLATFORM_THREAD_DATA_H_
#define QUARNFC_PLATFORM_THREAD_DATA_H_

// In the platform's file:
//   inline void* ThreadData();        what SetThreadData set on this thread
//   inline const void* ThreadMark();  an address that no other living thread has, never null
#if defined(_WIN32)
#include "platform/windows/thread_data.h"
#else
#include "platform/posix/thread_data.h"
#endif

namespace quarnfc::platform {

// Sets the pointer that ThreadData returns on this thread (null before). When the thread ends,
// at_end receives it unless it is null, and ThreadData returns null; every call passes the same
// function. Throws std::bad_alloc.
void SetThreadData(void* data, void (*at_end)(void* data));

// The module is unloading: no thread that ends calls into it any more.
void ReleaseThreadData() noexcept;

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_THREAD_DATA_H_
