// Copying text into a caller's buffer.
#ifndef QUARNFC_NET_BOUNDED_TEXT_H_
#define QUARNFC_NET_BOUNDED_TEXT_H_

#include <cstring>

#include "platform/code_page.h"

namespace quarnfc::net {

// Copies as much of source as fits into maximum bytes with its terminator, without splitting a
// double-byte character. A null target or a maximum of 0 takes nothing.
inline void CopyBounded(char* target, unsigned int maximum, const char* source) {
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

#endif  // QUARNFC_NET_BOUNDED_TEXT_H_
