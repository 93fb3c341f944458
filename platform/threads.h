// SPDX-License-Identifier: MIT
// What is known about the threads of this process.
#ifndef QUARNFC_PLATFORM_THREADS_H_
#define QUARNFC_PLATFORM_THREADS_H_

// In the platform's file:
//   inline bool HasOneThread();  whether the calling thread is certainly the only one; false where
//                                the platform does not tell
//
// It stays so until this very thread starts another, which then sees all that was done before: in
// between nothing need be atomic.
#if defined(_WIN32)
#include "platform/windows/threads.h"
#else
#include "platform/posix/threads.h"
#endif

#endif  // QUARNFC_PLATFORM_THREADS_H_
