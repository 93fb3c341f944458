// SPDX-License-Identifier: MIT
// The errors of the C library as Windows errors.
#ifndef QUARNFC_PLATFORM_POSIX_ERRNO_H_
#define QUARNFC_PLATFORM_POSIX_ERRNO_H_

#include "platform/system_error.h"

namespace quarnfc::platform {

// The Windows error for a value of errno; kGeneralFailure when none corresponds.
SystemError SystemErrorOf(int errno_value);

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_POSIX_ERRNO_H_
