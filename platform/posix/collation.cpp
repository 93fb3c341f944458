// SPDX-License-Identifier: MIT
#include "platform/collation.h"

// The locales of the C library are the host's to choose, and take UTF-8 as a rule.
std::optional<int> quarnfc::platform::SystemCollation(const unsigned char*, const unsigned char*,
                                                      bool) {
  return std::nullopt;
}
