// SPDX-License-Identifier: MIT
// The order of texts in the system's locale.
#ifndef QUARNFC_PLATFORM_COLLATION_H_
#define QUARNFC_PLATFORM_COLLATION_H_

#include <optional>

namespace quarnfc::platform {

// Below, equal to or above 0 as left sorts in front of right, with it or behind it. Empty where the
// system has no order for texts of the ANSI code page, which is everywhere but on Windows. The
// texts are zero-terminated.
std::optional<int> SystemCollation(const unsigned char* left, const unsigned char* right,
                                   bool ignore_case);

}  // namespace quarnfc::platform

#endif  // QUARNFC_PLATFORM_COLLATION_H_
