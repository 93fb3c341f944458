// SPDX-License-Identifier: MIT
// System errors as the library's messages print them: numbers of Windows on every target.
#ifndef QUARNFC_PLATFORM_SYSTEM_ERROR_H_
#define QUARNFC_PLATFORM_SYSTEM_ERROR_H_

namespace quarnfc::platform {

// 0 is success. Off Windows an error of the C library is given as the Windows error that the same
// failure has there, or as kGeneralFailure.
using SystemError = unsigned int;

inline constexpr SystemError kNoError = 0;
inline constexpr SystemError kFileNotFound = 2;
inline constexpr SystemError kPathNotFound = 3;
inline constexpr SystemError kTooManyOpenFiles = 4;
inline constexpr SystemError kAccessDenied = 5;
inline constexpr SystemError kGeneralFailure = 31;
inline constexpr SystemError kInvalidParameter = 87;

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_SYSTEM_ERROR_H_
