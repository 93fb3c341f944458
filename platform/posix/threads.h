// SPDX-License-Identifier: MIT
#ifndef QUARNFC_PLATFORM_POSIX_THREADS_H_
#define QUARNFC_PLATFORM_POSIX_THREADS_H_

#if __has_include(<sys/single_threaded.h>)
#include <sys/single_threaded.h>
#define QN_HAS_ONE_THREAD (__libc_single_threaded != 0)
#else
#define QN_HAS_ONE_THREAD false
#endif

namespace quarnfc::platform {

// The GNU C library keeps a byte that says so.
inline bool HasOneThread() { return QN_HAS_ONE_THREAD; }

}  // namespace quarnfc::platform

#undef QN_HAS_ONE_THREAD

#endif  // QUARNFC_PLATFORM_POSIX_THREADS_H_
