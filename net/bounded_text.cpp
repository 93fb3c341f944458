// SPDX-License-Identifier: MIT
#include "net/bounded_text.h"

#include <cstring>

#include "platform/code_page.h"

namespace quarnfc::net {

void CopyBounded(char* target, unsigned int maximum, const char* source) {
  if (target == nullptr || maximum == 0) return;
  unsigned int length = 0;
  while (source[length] != '\0') {
    const bool lead = platform::IsLeadByte(static_cast<unsigned char>(source[length]));
    const unsigned int size = lead && source[length + 1] != '\0' ? 2 : 1;
    if (size > maximum - 1 - length) break;
    length += size;
  }
  std::memcpy(target, source, length);
  target[length] = '\0';
}

}  // namespace quarnfc::net
