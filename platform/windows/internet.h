// SPDX-License-Identifier: MIT
// The Windows headers of the internet API and of the shell's URL functions.
#ifndef QUARNFC_PLATFORM_WINDOWS_INTERNET_H_
#define QUARNFC_PLATFORM_WINDOWS_INTERNET_H_

#include "platform/windows/platform.h"

#include <shlwapi.h>
#include <wininet.h>

#endif  // QUARNFC_PLATFORM_WINDOWS_INTERNET_H_
