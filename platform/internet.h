// The platform's internet API and URL functions, under the names Windows gives them.
#ifndef QUARNFC_PLATFORM_INTERNET_H_
#define QUARNFC_PLATFORM_INTERNET_H_

#if defined(_WIN32)
#include "platform/windows/internet.h"
#else
#include "platform/posix/internet.h"
#endif

#endif  // QUARNFC_PLATFORM_INTERNET_H_
