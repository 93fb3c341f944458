// SPDX-License-Identifier: MIT
// <windows.h>, for the files of this folder.
#ifndef QUARNFC_PLATFORM_WINDOWS_PLATFORM_H_
#define QUARNFC_PLATFORM_WINDOWS_PLATFORM_H_

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#endif  // QUARNFC_PLATFORM_WINDOWS_PLATFORM_H_
