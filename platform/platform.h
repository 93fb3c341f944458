// What differs between Windows and elsewhere, under the names Windows gives it: critical sections,
// code-page conversion, the multibyte run-time functions, system strings, the debugger output, the
// last error. Code above this folder reads the same on every target.
#ifndef QUARNFC_PLATFORM_PLATFORM_H_
#define QUARNFC_PLATFORM_PLATFORM_H_

#if defined(_WIN32)
#include "platform/windows/platform.h"
#else
#include "platform/posix/platform.h"
#endif

#endif  // QUARNFC_PLATFORM_PLATFORM_H_
