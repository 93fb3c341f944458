// SPDX-License-Identifier: MIT
#include "platform/collation.h"

#include <mbstring.h>

std::optional<int> quarnfc::platform::SystemCollation(const unsigned char* left,
                                                      const unsigned char* right,
                                                      bool ignore_case) {
  return ignore_case ? _mbsicoll(left, right) : _mbscoll(left, right);
}
