// The functions of the Windows run-time library for files above 2 GiB and for 64-bit times, under
// the names Windows gives them.
#ifndef QUARNFC_PLATFORM_CRT_H_
#define QUARNFC_PLATFORM_CRT_H_

#if defined(_WIN32)
#include "platform/windows/crt.h"
#else
#include "platform/posix/crt.h"
#endif

#endif  // QUARNFC_PLATFORM_CRT_H_
