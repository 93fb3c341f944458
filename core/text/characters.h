// Stepping through text of the process code page by characters.
#ifndef QUARNFC_CORE_MULTIBYTE_H_
#define QUARNFC_CORE_MULTIBYTE_H_

#include "core/text/multibyte.h"
#include "platform/platform.h"

namespace quarnfc {

// Text as the multibyte run-time functions take it; null reads as the empty text.
inline const unsigned char* Bytes(const char* text) {
  return reinterpret_cast<const unsigned char*>(text == nullptr ? "" : text);
}

inline unsigned char* Bytes(char* text) { return reinterpret_cast<unsigned char*>(text); }

// The width in bytes of the character at p, before end. A first byte without its second counts as
// a character of one byte.
inline int CharWidth(const char* p, const char* end) {
  const bool pair = end - p > 1 && p[1] != '\0' && _ismbblead(static_cast<unsigned char>(*p));
  return pair ? 2 : 1;
}

// The character at p as the multibyte functions number it: first byte above second byte.
inline unsigned int CharCode(const char* p, int width) {
  const auto first = static_cast<unsigned char>(p[0]);
  return width == 1 ? first : first * 256u + static_cast<unsigned char>(p[1]);
}

}  // namespace quarnfc

#endif  // QUARNFC_CORE_MULTIBYTE_H_
