// The headers of the run-time library that declare them.
#ifndef QUARNFC_PLATFORM_WINDOWS_CRT_H_
#define QUARNFC_PLATFORM_WINDOWS_CRT_H_

#include <share.h>
#include <stdio.h>
#include <time.h>

#endif  // QUARNFC_PLATFORM_WINDOWS_CRT_H_
